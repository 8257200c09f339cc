// SPDX-License-Identifier: MIT
#include "InspectionText.h"
#include "Columns.h"
#include "FormatNames.h"
#include "Quoted.h"
#include <algorithm>
#include <limits>

namespace Vesk::Tool
{

using FastInfoset::StructureObserver;
using Part = FastInfoset::StructureObserver::Part;
using Structure = FastInfoset::StructureObserver::Structure;

namespace
{

constexpr std::size_t OFFSET_COLUMNS = 10;
constexpr std::size_t OCTET_COLUMNS = 24; // eight octets
constexpr unsigned long ALL_BITS = std::numeric_limits<unsigned long>::max();
constexpr std::size_t SHOWN_CHARACTERS = 60;
constexpr std::size_t MAX_INDENTATION = 60; // of documents nested more deeply than anybody can read

std::string offsetText(unsigned long bit)
{
    return rightAligned(std::to_string(bit / 8), 7) + (bit % 8 == 0 ? "" : "." + std::to_string(bit % 8));
}

std::string hexadecimal(char octet)
{
    const char* const digits = "0123456789abcdef";
    const auto value = static_cast<unsigned char>(octet);
    return {digits[value >> 4], digits[value & 0xF]};
}

// The bits from first to the one before end; points for the others.
std::string bits(char octet, unsigned long first, unsigned long end)
{
    std::string text(8, '.');
    for (unsigned long bit = first; bit < end; ++bit)
        text[bit] = (static_cast<unsigned char>(octet) >> (7 - bit)) & 1 ? '1' : '0';
    return text;
}

// Octet i as a word: hexadecimal, or bits if it belongs to the part only partly.
std::string octetWord(unsigned long beginBit, unsigned long endBit, std::string_view octets, std::size_t i)
{
    const unsigned long octetBit = 8 * (beginBit / 8 + i);
    const unsigned long first = std::max(beginBit, octetBit) - octetBit;
    const unsigned long end = std::min(endBit, octetBit + 8) - octetBit;
    return first == 0 && end == 8 ? hexadecimal(octets[i]) : bits(octets[i], first, end);
}

struct Flag
{
    unsigned long mask;
    const char* name;
};

constexpr Flag HEADER_FLAGS[] = {
    {0x40, "additional data"},    {0x20, "initial vocabulary"}, {0x10, "notations"}, {0x08, "unparsed entities"},
    {0x04, "character encoding"}, {0x02, "standalone"},         {0x01, "version"}};

constexpr Flag VOCABULARY_FLAGS[] = {{0x1000, "external vocabulary"}, {0x0800, "restricted alphabets"},
                                     {0x0400, "encoding algorithms"}, {0x0200, "prefixes"},
                                     {0x0100, "namespace names"},     {0x0080, "local names"},
                                     {0x0040, "other NCNames"},       {0x0020, "other URIs"},
                                     {0x0010, "attribute values"},    {0x0008, "character chunks"},
                                     {0x0004, "other strings"},       {0x0002, "element names"},
                                     {0x0001, "attribute names"}};

template <std::size_t SIZE>
std::string listed(const Flag (&flags)[SIZE], unsigned long value)
{
    std::string list;
    for (const Flag& flag : flags)
    {
        if ((value & flag.mask) != 0)
            list += std::string(list.empty() ? "" : ", ") + flag.name;
    }
    return list.empty() ? "nothing optional" : list;
}

std::string times(unsigned long count, const char* one, const char* many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace

InspectionText::InspectionText(std::ostream& output, const Terminal& terminal, bool isFull)
    : _output(output),
      _terminal(terminal),
      _isFull(isFull)
{
}

void InspectionText::part(const InspectedPart& inspected)
{
    const Part& part = inspected.part;
    line(part.beginBit, part.endBit, inspected.octets, inspected.depth, descriptionOf(inspected));
}

void InspectionText::octetsBehind(unsigned long offset, unsigned long octetCount, std::string_view firstOctets)
{
    line(8 * offset, 8 * (offset + octetCount), firstOctets, 0,
         _terminal.styled(Terminal::YELLOW, times(octetCount, "octet", "octets") + " behind the document, not read"));
}

void InspectionText::failure(unsigned long bit, std::string_view octets, const std::string& reason,
                             const std::string& path)
{
    line(bit, ALL_BITS, octets, 0,
         _terminal.styled(Terminal::RED, "ERROR in " + path + ": " + shown(reason, ALL_CHARACTERS)));
}

// Octets that do not fit beside the description go to lines of their own, or only the first ones are shown.
void InspectionText::line(unsigned long beginBit, unsigned long endBit, std::string_view octets, std::size_t depth,
                          const std::string& description)
{
    std::size_t next = 0;
    const auto row = [&]
    {
        std::string words;
        for (; next < octets.size(); ++next)
        {
            const std::string word = octetWord(beginBit, endBit, octets, next);
            if (words.size() + word.size() >= OCTET_COLUMNS)
                break;
            words += word + ' ';
        }
        return words;
    };
    std::string first = row();
    if (next < octets.size() && !_isFull)
        first.replace(first.size() - 3, 3, ".. ");
    _output << _terminal.styled(Terminal::DIM, padded(beginBit < endBit ? offsetText(beginBit) : "", OFFSET_COLUMNS))
            << padded(first, OCTET_COLUMNS) << "  " << std::string(std::min(2 * depth, MAX_INDENTATION), ' ')
            << description << '\n';
    while (_isFull && next < octets.size())
        _output << padded("", OFFSET_COLUMNS) << row() << '\n';
}

std::string InspectionText::descriptionOf(const InspectedPart& inspected) const
{
    const Part& part = inspected.part;
    const std::string structure = nameOf(inspected.structure);
    switch (part.kind)
    {
    case Part::XML_DECLARATION:
        return "XML declaration " + quotedText(*part.text);
    case Part::IDENTIFICATION:
        return heading("Fast Infoset");
    case Part::FORMAT_VERSION:
        return "version 1";
    case Part::FLAGS:
        return heading(structure + ": " +
                       (inspected.structure == Structure::HEADER ? listed(HEADER_FLAGS, part.value)
                                                                 : listed(VOCABULARY_FLAGS, part.value)));
    case Part::COUNT:
        return inspected.structure == Structure::VOCABULARY_TABLE
                   ? heading(std::string(nameOf(part.table)) + ": " + times(part.value, "entry", "entries"))
                   : heading(structure + ": " + times(part.value, "item", "items"));
    case Part::START:
        return heading(structure);
    case Part::LITERAL_NAME:
        return "new name";
    case Part::STRING:
        return inspected.role + " " + (part.text ? quotedText(*part.text) : "that does not exist") + formOf(part) +
               placeOf(part);
    case Part::NAME:
        return "name " +
               (part.name ? shown(qualifiedName(*part.name), shownCharacters()) : "of parts that do not exist") +
               placeOf(part);
    case Part::STANDALONE:
        return part.value == 0 ? "standalone: no" : "standalone: yes";
    case Part::TERMINATOR:
        return faint("end of " + structure + (inspected.elementName.empty() ? "" : " ") +
                     shown(inspected.elementName, shownCharacters()));
    case Part::PADDING:
        break;
    }
    return faint("padding");
}

// How a literal is stored, where it is not as usual.
std::string InspectionText::formOf(const Part& part)
{
    if (part.indexing == StructureObserver::Indexing::INDEXED || part.form == StructureObserver::Form::UTF8)
        return "";
    return (part.form == StructureObserver::Form::ENCODING_ALGORITHM ? " as " : " in ") +
           nameOf(part.form, part.formIndex);
}

// The arrow tells whether the document fills the table or takes from it.
std::string InspectionText::placeOf(const Part& part) const
{
    const std::string place = std::string(nameOf(part.table)) + " [" + std::to_string(part.index) + "]";
    switch (part.indexing)
    {
    case StructureObserver::Indexing::ADDED:
        return _terminal.styled(Terminal::GREEN, " -> " + place);
    case StructureObserver::Indexing::INDEXED:
        return _terminal.styled(Terminal::CYAN, " <- " + place);
    case StructureObserver::Indexing::LITERAL:
        break;
    }
    return "";
}

std::string InspectionText::heading(const std::string& text) const
{
    return _terminal.styled(Terminal::BOLD, text);
}

std::string InspectionText::faint(const std::string& text) const
{
    return _terminal.styled(Terminal::DIM, text);
}

std::string InspectionText::quotedText(const std::string& text) const
{
    return quoted(text, shownCharacters());
}

std::size_t InspectionText::shownCharacters() const
{
    return _isFull ? ALL_CHARACTERS : SHOWN_CHARACTERS;
}

} // namespace Vesk::Tool
