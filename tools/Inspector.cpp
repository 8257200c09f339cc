// SPDX-License-Identifier: MIT
#include "Inspector.h"
#include <limits>

namespace Vesk::Tool
{

namespace
{

using Structure = FastInfoset::StructureObserver::Structure;
using Table = FastInfoset::StructureObserver::Table;

constexpr unsigned long FAILURE_OCTETS = 32; // to show where a document fails
constexpr unsigned long BEHIND_OCTETS = 32;

// What the n-th string of a structure is (from 0). The last two bits of the octet that starts the structure tell whether a
// system and a public identifier are there; of an unparsed entity the system identifier always is.
std::string roleOfString(Structure structure, Table table, unsigned int n, unsigned int startOctet)
{
    switch (table)
    {
    case Table::NONE:
        if (structure == Structure::ADDITIONAL_DATA)
            return n % 2 == 0 ? "identifier" : "data";
        return structure == Structure::INITIAL_VOCABULARY ? "external vocabulary" : "character encoding scheme";
    case Table::RESTRICTED_ALPHABET:
        return "characters";
    case Table::ENCODING_ALGORITHM:
        return "algorithm";
    case Table::PREFIX:
        return "prefix";
    case Table::NAMESPACE_NAME:
        return "namespace name";
    case Table::LOCAL_NAME:
        return "local name";
    case Table::OTHER_NCNAME:
        if (structure == Structure::PROCESSING_INSTRUCTION)
            return "target";
        return structure == Structure::UNPARSED_ENTITY && n > 0 ? "notation name" : "name";
    case Table::OTHER_URI:
    {
        if (structure == Structure::VOCABULARY_TABLE)
            return "URI";
        const unsigned int first = structure == Structure::DOCUMENT_TYPE_DECLARATION ? 0 : 1; // behind a name
        const bool hasSystemId = structure == Structure::UNPARSED_ENTITY || (startOctet & 2) != 0;
        return hasSystemId && n == first ? "system identifier" : "public identifier";
    }
    case Table::ATTRIBUTE_VALUE:
        return "value";
    case Table::OTHER_STRING:
        if (structure == Structure::PROCESSING_INSTRUCTION)
            return "data";
        return structure == Structure::HEADER ? "version" : "text";
    default:
        return "text";
    }
}

// Whether the parts of a structure stand further in than the structure. Those that only list others are not told apart
// from what is around them.
bool isShown(Structure structure)
{
    switch (structure)
    {
    case Structure::DOCUMENT:
    case Structure::HEADER:
    case Structure::NOTATIONS:
    case Structure::UNPARSED_ENTITIES:
    case Structure::NAMESPACE_ATTRIBUTES:
    case Structure::ATTRIBUTES:
        return false;
    default:
        return true;
    }
}

// Whether a part stands for the structure as a whole: its start or end.
bool isEdge(const FastInfoset::StructureObserver::Part& part)
{
    using Part = FastInfoset::StructureObserver::Part;
    return part.kind == Part::START || part.kind == Part::FLAGS || part.kind == Part::COUNT ||
           part.kind == Part::TERMINATOR;
}

} // namespace

Inspector::Inspector(InspectionWriter& writer)
    : _writer(writer),
      _reader(this)
{
}

void Inspector::inspect(std::istream& input, const std::string& file)
{
    RecordingStream octets(input);
    _octets = &octets;
    try
    {
        _reader.read(octets, file);
    }
    catch (const DocumentFailure& failure)
    {
        const unsigned long offset = failure.bit() / 8;
        _writer.failure(failure.bit(), octets.octets(offset, offset + FAILURE_OCTETS), failure.reason(),
                        _reader.path().text());
        throw;
    }
    tellOctetsBehind(octets);
}

void Inspector::startStructure(Structure structure)
{
    const std::size_t depth = _open.empty() ? 0 : _open.back().depth;
    _open.push_back({structure, depth + (isShown(structure) ? 1 : 0)});
}

void Inspector::part(const Part& part)
{
    OpenStructure& innermost = _open.back();
    const std::string_view octets = _octets->octets(part.beginBit / 8, (part.endBit + 7) / 8);
    const std::size_t outwards = isShown(innermost.structure) && isEdge(part) ? 1 : 0;
    InspectedPart inspected{part, innermost.structure, innermost.depth - outwards, octets, "", ""};
    if (part.kind == Part::TERMINATOR && innermost.structure == Structure::ELEMENT)
        inspected.elementName = _reader.path().elementName();
    else if (part.kind == Part::STRING)
        inspected.role = roleOfString(innermost.structure, part.table, innermost.stringCount++, innermost.startOctet);
    else if (part.kind == Part::START && !octets.empty())
        innermost.startOctet = static_cast<unsigned char>(octets.back());
    _writer.part(inspected);
    _octets->forget(part.endBit / 8);
}

void Inspector::endStructure(Structure)
{
    _open.pop_back();
}

void Inspector::tellOctetsBehind(RecordingStream& octets)
{
    const unsigned long offset = _reader.endBit() / 8;
    const std::string first(octets.octets(offset, offset + BEHIND_OCTETS));
    octets.forget(octets.octetCount());
    octets.clear();
    octets.ignore(std::numeric_limits<std::streamsize>::max());
    if (octets.octetCount() > offset)
        _writer.octetsBehind(offset, octets.octetCount() - offset, first);
}

} // namespace Vesk::Tool
