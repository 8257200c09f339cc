// SPDX-License-Identifier: MIT
#include "InspectionJSON.h"
#include "FormatNames.h"
#include "JSONWriter.h"

namespace Vesk::Tool
{

using FastInfoset::StructureObserver;
using Part = FastInfoset::StructureObserver::Part;

namespace
{

void addTable(JSONWriter& json, const Part& part)
{
    if (part.table != StructureObserver::Table::NONE)
        json.member("table", nameOf(part.table));
    switch (part.indexing)
    {
    case StructureObserver::Indexing::LITERAL:
        return;
    case StructureObserver::Indexing::ADDED:
        json.member("indexing", "added");
        break;
    case StructureObserver::Indexing::INDEXED:
        json.member("indexing", "indexed");
        break;
    }
    json.member("index", static_cast<unsigned long>(part.index));
}

void addDetails(JSONWriter& json, const InspectedPart& inspected)
{
    const Part& part = inspected.part;
    switch (part.kind)
    {
    case Part::FLAGS:
    case Part::STANDALONE:
        json.member("value", part.value);
        break;
    case Part::COUNT:
        addTable(json, part);
        json.member("value", part.value);
        break;
    case Part::STRING:
        json.member("role", inspected.role);
        addTable(json, part);
        if (part.indexing != StructureObserver::Indexing::INDEXED)
            json.member("form", nameOf(part.form, part.formIndex));
        break;
    case Part::LITERAL_NAME:
    case Part::NAME:
        addTable(json, part);
        break;
    default:
        break;
    }
    if (part.text)
        json.member("text", *part.text);
    if (part.name)
    {
        json.key("name").beginObject();
        json.member("prefix", *part.name->prefix);
        json.member("namespace", *part.name->namespaceName);
        json.member("local", *part.name->localName).endObject();
    }
}

} // namespace

InspectionJSON::InspectionJSON(std::ostream& output)
    : _output(output)
{
}

void InspectionJSON::part(const InspectedPart& inspected)
{
    const Part& part = inspected.part;
    JSONWriter json(_output);
    json.beginObject();
    json.member("offset", part.beginBit / 8)
        .member("bit", part.beginBit % 8)
        .member("bits", part.endBit - part.beginBit);
    json.key("octets").hexadecimal(inspected.octets);
    json.member("depth", static_cast<unsigned long>(inspected.depth)).member("structure", nameOf(inspected.structure));
    json.member("part", nameOf(part.kind));
    addDetails(json, inspected);
    json.endObject();
    _output << '\n';
}

void InspectionJSON::octetsBehind(unsigned long offset, unsigned long octetCount, std::string_view firstOctets)
{
    JSONWriter json(_output);
    json.beginObject();
    json.member("offset", offset).member("bit", 0ul).member("bits", 8 * octetCount);
    json.key("octets").hexadecimal(firstOctets).member("part", "behind the document");
    json.endObject();
    _output << '\n';
}

void InspectionJSON::failure(unsigned long bit, std::string_view octets, const std::string& reason,
                             const std::string& path)
{
    JSONWriter json(_output);
    json.beginObject();
    json.member("offset", bit / 8).member("bit", bit % 8).key("octets").hexadecimal(octets);
    json.member("error", reason).member("path", path);
    json.endObject();
    _output << '\n';
}

} // namespace Vesk::Tool
