// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_RESOLVEDQUALNAME_H
#define VESK_FASTINFOSET_RESOLVEDQUALNAME_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <string>

namespace Vesk::FastInfoset
{

/// A qualified name as the strings of the vocabulary tables it stands for.
///
/// The strings are borrowed from the tables, whose entries never move, or are FastInfosetParser::EMPTY_STRING for an
/// absent part; they are good as long as the vocabulary is not reset.
struct VESK_FASTINFOSET_API ResolvedQualName
{
    /// All three parts empty.
    ResolvedQualName();

    /// The three parts; never null.
    const std::string* prefix;
    const std::string* namespaceName;
    const std::string* localName;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_RESOLVEDQUALNAME_H
