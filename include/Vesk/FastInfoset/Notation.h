// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NOTATION_H
#define VESK_FASTINFOSET_NOTATION_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <string>
#include <utility>

namespace Vesk::FastInfoset
{

/// A notation declaration (X.891 clause 7.11). An absent identifier is empty.
class VESK_FASTINFOSET_API Notation
{
public:
    Notation() = default;

    /// A notation with this name and these identifiers.
    Notation(std::string name, std::string publicId, std::string systemId)
        : _name(std::move(name)),
          _publicId(std::move(publicId)),
          _systemId(std::move(systemId))
    {
    }

    /// What the document declares; an absent identifier is empty.
    const std::string& name() const { return _name; }
    const std::string& publicId() const { return _publicId; }
    const std::string& systemId() const { return _systemId; }

private:
    std::string _name;
    std::string _publicId;
    std::string _systemId;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NOTATION_H
