// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_TALLY_H
#define VESK_BENCHMARKS_TALLY_H

#include <cstddef>
#include <ostream>

namespace Vesk::Benchmarks
{

/// What a contestant counts in a document: the work that each of them does for each event, and the proof that it saw
/// the same document as the others.
///
/// Comments, processing instructions, the document type declaration and the prefixes of names are not counted, because
/// not every contestant reports them. Namespace declarations are no attributes, unless the contestant does not know
/// namespaces at all.
struct Tally
{
    std::size_t elements = 0;
    std::size_t ends = 0;
    std::size_t attributes = 0;
    std::size_t nameOctets = 0; ///< of elements and attributes
    std::size_t valueOctets = 0;
    std::size_t textOctets = 0;

    void addElement(std::size_t octetCount)
    {
        ++elements;
        nameOctets += octetCount;
    }
    void addEnd() { ++ends; }
    void addAttribute(std::size_t nameOctetCount, std::size_t valueOctetCount)
    {
        ++attributes;
        nameOctets += nameOctetCount;
        valueOctets += valueOctetCount;
    }
    void addText(std::size_t octetCount) { textOctets += octetCount; }

    /// The octets of a name with its namespace as one text: URI, separator, local name; without a URI the local name
    /// alone.
    static std::size_t expandedOctets(std::size_t uriOctets, std::size_t localNameOctets)
    {
        return localNameOctets + (uriOctets > 0 ? uriOctets + 1 : 0);
    }

    Tally& operator+=(const Tally& other);
};

bool operator==(const Tally& left, const Tally& right);
bool operator!=(const Tally& left, const Tally& right);

/// For messages.
std::ostream& operator<<(std::ostream& out, const Tally& tally);

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_TALLY_H
