// SPDX-License-Identifier: MIT
#ifndef VESK_XML_EXPANDEDNAMES_H
#define VESK_XML_EXPANDEDNAMES_H

#include "Vesk/XML/XMLString.h"
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <string_view>

namespace Vesk::XML
{
/// The names of one document, taken apart once each.
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
        XMLString tail; // what follows the namespace name in the raw name
        XMLString localName;
        XMLString qname;
        std::size_t rawLength;

        bool matches(const char* raw, std::size_t length) const
        {
            if (length != rawLength)
                return false;
            if (!uri->empty())
            {
                if (raw[uri->size()] != SEPARATOR || std::memcmp(raw, uri->data(), uri->size()) != 0)
                    return false;
                raw += uri->size() + 1;
            }
            return std::memcmp(raw, tail.data(), tail.size()) == 0;
        }
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
            recent = &findOrAdd(std::string_view(raw, length));
        return *recent;
    }

    std::size_t size() const { return _entries.size(); }
    void clear();

private:
    struct Key
    {
        std::string_view uri;
        std::string_view tail;
    };

    struct Less
    {
        using is_transparent = void;

        static Key key(const Entry& entry) { return {*entry.uri, entry.tail}; }
        static Key key(const Key& key) { return key; }

        template <class Left, class Right>
        bool operator()(const Left& left, const Right& right) const
        {
            const Key a = key(left);
            const Key b = key(right);
            const int order = a.tail.compare(b.tail);
            return order != 0 ? order < 0 : a.uri < b.uri;
        }
    };

    static constexpr int SLOT_BITS = 9;

    // Names differ at their ends; the last 16 octets and the length tell nearly all of a document's names apart.
    static std::size_t slot(const char* raw, std::size_t length)
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

    const Entry& findOrAdd(std::string_view raw);

    std::set<Entry, Less> _entries;
    std::set<XMLString, std::less<>> _uris; // each held once: a long one does not count for every name in it
    std::array<const Entry*, std::size_t(1) << SLOT_BITS> _recent = {};
};
} // namespace Vesk::XML

#endif // VESK_XML_EXPANDEDNAMES_H
