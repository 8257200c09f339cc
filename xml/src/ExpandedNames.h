// SPDX-License-Identifier: MIT
#ifndef VESK_XML_EXPANDEDNAMES_H
#define VESK_XML_EXPANDEDNAMES_H

#include "Vesk/XML/XMLString.h"
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <set>
#include <string_view>
#include <vector>

namespace Vesk::XML
{
/// The names of a document, taken apart once each.
///
/// The parser below delivers a name as one string: the local name alone, or namespace name, SEPARATOR and local name,
/// followed by SEPARATOR and prefix if there is one.
class ExpandedNames
{
public:
    /// A character that no well-formed document contains.
    static constexpr char SEPARATOR = '\x01';

    struct Entry
    {
        const XMLString* uri;
        XMLString localName;
        XMLString qname;
        std::size_t rawLength;
        std::uint32_t hash;
        Entry* next; // in the same bucket

        bool matches(const char* raw, std::size_t length) const;
    };

    ExpandedNames() = default;
    ExpandedNames(const ExpandedNames&) = delete;
    ExpandedNames& operator=(const ExpandedNames&) = delete;

    /// The parts of a raw name. They stay where they are until clear.
    const Entry& find(const char* raw)
    {
        const std::size_t length = std::strlen(raw);
        const Entry*& recent = _recent[slot(raw, length)];
        if (!recent || !recent->matches(raw, length))
            recent = &findOrAdd(raw, length);
        return *recent;
    }

    std::size_t size() const { return _entries.size(); }
    void clear();

private:
    static constexpr int SLOT_BITS = 9;

    static std::size_t slot(const char* raw, std::size_t length);
    Entry& findOrAdd(const char* raw, std::size_t length);
    Entry& add(std::string_view raw);
    void grow();

    // A crafted document can make all of its names meet in one slot; the buckets are found by a hash that it cannot
    // know.
    std::array<const Entry*, std::size_t(1) << SLOT_BITS> _recent = {};
    std::vector<Entry*> _buckets;
    std::deque<Entry> _entries;
    std::set<XMLString, std::less<>> _uris; // each held once: a long one does not count for every name in it
};

inline bool ExpandedNames::Entry::matches(const char* raw, std::size_t length) const
{
    if (length != rawLength)
        return false;
    if (uri->empty())
        return std::memcmp(raw, localName.data(), length) == 0;

    const char* const local = raw + uri->size() + 1;
    const char* const afterLocal = local + localName.size();
    // Equal lengths: with a prefix in this name, there is an octet after the local name.
    const std::size_t prefixLength = qname.size() > localName.size() ? qname.size() - localName.size() - 1 : 0;
    return local[-1] == SEPARATOR && std::memcmp(local, localName.data(), localName.size()) == 0 &&
           (prefixLength == 0 ||
            (*afterLocal == SEPARATOR && std::memcmp(afterLocal + 1, qname.data(), prefixLength) == 0)) &&
           std::memcmp(raw, uri->data(), uri->size()) == 0;
}

// Names differ at their ends; the last 16 octets and the length tell nearly all of a document's names apart.
inline std::size_t ExpandedNames::slot(const char* raw, std::size_t length)
{
    std::uint64_t high = 0;
    std::uint64_t low = 0;
    if (length >= 16)
    {
        std::memcpy(&high, raw + length - 16, 8);
        std::memcpy(&low, raw + length - 8, 8);
    }
    else if (length >= 8)
    {
        std::memcpy(&high, raw, 8);
        std::memcpy(&low, raw + length - 8, 8);
    }
    else
    {
        for (std::size_t i = 0; i < length; ++i)
            low = low << 8 | static_cast<unsigned char>(raw[i]);
    }
    const std::uint64_t mixed = (high * 0x9E3779B97F4A7C15u ^ low ^ length) * 0xD6E8FEB86659FD93u;
    return static_cast<std::size_t>(mixed >> (64 - SLOT_BITS));
}
} // namespace Vesk::XML

#endif // VESK_XML_EXPANDEDNAMES_H
