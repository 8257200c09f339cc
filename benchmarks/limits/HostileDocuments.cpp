// SPDX-License-Identifier: MIT
#include "HostileDocuments.h"
#include "Octets.h"
#include "SipHash.h"
#include <algorithm>

using Vesk::FastInfoset::DocumentVocabulary;

namespace
{

constexpr std::size_t MEGA = 1000 * 1000;

std::string repeated(const std::string& head, const std::string& unit, std::size_t octetCount,
                     const std::string& tail = std::string())
{
    std::string document = head;
    document.reserve(octetCount + unit.size() + tail.size());
    while (document.size() + tail.size() < octetCount)
        document += unit;
    return document + tail;
}

/// Four octets that are different for every number below 2^24.
std::string numbered(std::size_t number)
{
    std::string text(4, 'a');
    for (char& c : text)
    {
        c = static_cast<char>('!' + number % 64);
        number /= 64;
    }
    return text;
}

std::string counted(const std::string& head, const std::function<std::string(std::size_t)>& unit,
                    std::size_t octetCount)
{
    std::string document = head;
    for (std::size_t i = 0; document.size() < octetCount; ++i)
        document += unit(i);
    return document;
}

const std::string HEADER = octetsOf("E0 00 00 01 00");
const std::string ROOT = HEADER + octetsOf("3C 00 'a'");

/// The 32-bit length of what follows, behind bit 6 of an octet.
std::string longLength(std::size_t octetCount)
{
    const unsigned long code = octetCount - 259;
    std::string octets;
    for (int shift = 24; shift >= 0; shift -= 8)
        octets += static_cast<char>(code >> shift);
    return octets;
}

/// One chunk that fills the document. The bits hold its form and end where the length starts, on bit 6 of an octet.
std::string oneChunk(const std::string& head, const std::string& bits, std::size_t octetCount, char octet)
{
    std::string document = head;
    appendBits(document, bits + "11");
    return document + longLength(octetCount) + std::string(octetCount, octet);
}

/// A list of the initial vocabulary with 2^20 + 128 entries at most. The flags are its two octets.
std::string initialList(const std::string& flags, const std::string& entry, std::size_t octetCount)
{
    const std::size_t count = std::min<std::size_t>(octetCount / entry.size(), 0xFFFFF + 129);
    const std::size_t code = count - 129;
    std::string document = octetsOf("E0 00 00 01 20") + flags;
    document += static_cast<char>(0x80 | (code >> 16));
    document += static_cast<char>(code >> 8);
    document += static_cast<char>(code);
    for (std::size_t i = 0; i < count; ++i)
        document += entry;
    return document;
}

/// Texts whose hashes would collide if their key were known: under the key 0 the last ten bits are the same.
std::string collidingTexts(std::size_t octetCount)
{
    const Vesk::SipHash<1, 3> hash(0, 0);
    std::string document = ROOT;
    for (std::size_t i = 0; document.size() < octetCount; ++i)
    {
        const std::string text = numbered(i);
        if ((hash(text.data(), text.size()) & 0x3FF) == 0)
            document += octetsOf("92 01") + text;
    }
    return document;
}

} // namespace

std::vector<HostileDocument> hostileDocuments()
{
    const auto vector = DocumentVocabulary::VOC_VECTOR;
    const auto map = DocumentVocabulary::VOC_MAP;
    const auto again = [](const std::string& head, const std::string& unit)
    {
        return [=](std::size_t size)
        {
            return repeated(head, unit, size);
        };
    };
    const auto number = [](const std::string& head, const std::string& before, const std::string& behind)
    {
        return [=](std::size_t size)
        {
            return counted(
                head, [&](std::size_t i) { return before + numbered(i) + behind; }, size);
        };
    };
    const auto chunk = [](const std::string& head, const std::string& bits, char octet)
    {
        return [=](std::size_t size)
        {
            return oneChunk(head, bits, size, octet);
        };
    };
    const std::string attributes = HEADER + octetsOf("7C 00 'a' 78 00 'b' 40 '1'");
    const std::string alphabet = octetsOf("E0 00 00 01 20 08 00 00 03 F0 9F 98 80 3C 00 'a'");
    return {
        {"texts of one octet, added to the table", vector, again(ROOT, octetsOf("90 'x'")), 4 * MEGA},
        {"different texts, added to the table", map, number(ROOT, octetsOf("92 01"), ""), 4 * MEGA},
        {"texts made to collide", map, collidingTexts, MEGA / 4},
        {"comments of one octet, added to the table", vector, again(ROOT, octetsOf("E2 40 'x'")), 4 * MEGA},
        {"attributes of one element, values added", vector, again(attributes, octetsOf("00 40 'x'")), 4 * MEGA},
        {"attributes of one element, values by index", vector, again(attributes, octetsOf("00 80")), 4 * MEGA},
        {"names of indexes", vector, again(ROOT, octetsOf("3E 80 80 3E 80 80 FF")), 4 * MEGA},
        {"different names", map, number(HEADER, octetsOf("3C 03"), octetsOf("F0")), 4 * MEGA},
        {"nested elements", vector, again(ROOT, octetsOf("00")), 4 * MEGA},
        {"namespace declarations of one element", vector, again(HEADER + octetsOf("38"), octetsOf("CC")), 4 * MEGA},
        {"namespace declarations, different prefixes", map,
         number(HEADER + octetsOf("38"), octetsOf("CF 03"), octetsOf("80")), 4 * MEGA},
        {"alphabets of one character in the header", vector,
         [](std::size_t size) { return initialList(octetsOf("08 00"), octetsOf("00 'x'"), size); }, MEGA / 2},
        {"prefixes of one octet in the header", vector,
         [](std::size_t size) { return initialList(octetsOf("02 00"), octetsOf("00 'x'"), size); }, MEGA / 2},
        {"element names in the header", vector,
         [](std::size_t size) { return initialList(octetsOf("00 02"), octetsOf("00 00"), size); }, MEGA / 2},
        {"text in an alphabet of one character", vector, chunk(alphabet, "10 0 0 10 00 001111", '\0'), 4 * MEGA},
        {"the same, added to the table", vector, chunk(alphabet, "10 0 1 10 00 001111", '\0'), 4 * MEGA},
        {"text in UTF-16", vector, chunk(ROOT, "10 0 1 01", '\x20'), 4 * MEGA},
        {"hexadecimal data, added as text", vector, chunk(ROOT, "10 0 1 11 00 000000", 'x'), 4 * MEGA},
        {"base64 data, added as text", vector, chunk(ROOT, "10 0 1 11 00 000001", 'x'), 4 * MEGA},
        {"booleans, added as text", vector, chunk(ROOT, "10 0 1 11 00 000101", '\0'), MEGA},
        {"floats, added as text", vector, chunk(ROOT, "10 0 1 11 00 000110", '\x91'), 4 * MEGA},
        {"short integers, added as text", vector, chunk(ROOT, "10 0 1 11 00 000010", '\x91'), 4 * MEGA},
        {"one long text, repeated by index", vector,
         [](std::size_t size)
         {
             const std::string text(size / 2, 'x');
             std::string document = ROOT;
             appendBits(document, "10 0 1 00 11");
             return repeated(document + longLength(text.size()) + text, octetsOf("A0"), size);
         },
         4 * MEGA},
        {"names of one long prefix", vector,
         [](std::size_t size)
         {
             const std::string prefix(size / 2, 'p');
             std::string document = HEADER + octetsOf("3E");
             appendBits(document, "0 1100000");
             const std::string code = longLength(prefix.size() + 259 - 321);
             return repeated(document + code + prefix + octetsOf("00 'a'"), octetsOf("3E 81 80 3E 81 80 FF"), size);
         },
         4 * MEGA},
    };
}
