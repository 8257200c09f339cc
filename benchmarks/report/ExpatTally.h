// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_EXPATTALLY_H
#define VESK_BENCHMARKS_EXPATTALLY_H

#include "Tally.h"
#include <expat.h>
#include <memory>
#include <string>
#include <type_traits>

namespace Vesk::Benchmarks
{

/// Counts a document with expat: the reference for all tallies, and the parser that the others are compared with.
class ExpatTally
{
public:
    enum Names
    {
        EXPANDED, ///< with namespaces: URI, separator, local name
        QUALIFIED ///< as they are written; namespace declarations are attributes
    };

    explicit ExpatTally(Names names = EXPANDED);

    /// Parses the document, each time with the same expat parser. Throws DataFormatException if it is not well-formed.
    const Tally& parse(const std::string& xml);

private:
    struct Deleter
    {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Deleter> _parser;
    Tally _tally;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_EXPATTALLY_H
