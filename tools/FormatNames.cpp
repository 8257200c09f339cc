// SPDX-License-Identifier: MIT
#include "FormatNames.h"

namespace Vesk::Tool
{

using FastInfoset::StructureObserver;

namespace
{

// By the enumerators of StructureObserver, in their order.
const char* const STRUCTURES[] = {"document",
                                  "header",
                                  "additional data",
                                  "initial vocabulary",
                                  "vocabulary table",
                                  "notations",
                                  "notation",
                                  "unparsed entities",
                                  "unparsed entity",
                                  "element",
                                  "namespace attributes",
                                  "namespace attribute",
                                  "attributes",
                                  "attribute",
                                  "character chunk",
                                  "processing instruction",
                                  "comment",
                                  "document type declaration",
                                  "entity reference"};

const char* const TABLES[] = {"restricted alphabets", "encoding algorithms", "prefixes",      "namespace names",
                              "local names",          "other NCNames",       "other URIs",    "attribute values",
                              "other strings",        "character chunks",    "element names", "attribute names"};

const char* const KINDS[] = {"XML declaration", "identification", "version", "flags",      "count",      "start",
                             "literal name",    "string",         "name",    "standalone", "terminator", "padding"};

// X.891 clause 10, by index.
const char* const ALGORITHMS[] = {"",        "hexadecimal", "base64", "short", "int",  "long",
                                  "boolean", "float",       "double", "UUID",  "CDATA"};

// X.891 clause 9, by index.
const char* const ALPHABETS[] = {"", "numeric", "date and time"};

template <std::size_t SIZE>
std::string known(const char* const (&names)[SIZE], unsigned int index)
{
    return index < SIZE ? names[index] : "";
}

} // namespace

const char* nameOf(StructureObserver::Structure structure)
{
    return STRUCTURES[static_cast<int>(structure)];
}

const char* nameOf(StructureObserver::Table table)
{
    return table == StructureObserver::Table::NONE ? "" : TABLES[static_cast<int>(table)];
}

const char* nameOf(StructureObserver::Part::Kind kind)
{
    return KINDS[kind];
}

std::string nameOf(StructureObserver::Form form, unsigned int index)
{
    switch (form)
    {
    case StructureObserver::Form::UTF8:
        return "UTF-8";
    case StructureObserver::Form::UTF16:
        return "UTF-16";
    case StructureObserver::Form::RESTRICTED_ALPHABET:
    {
        const std::string name = known(ALPHABETS, index);
        return "alphabet " + std::to_string(index) + (name.empty() ? "" : " (" + name + ")");
    }
    case StructureObserver::Form::ENCODING_ALGORITHM:
        break;
    }
    const std::string name = known(ALGORITHMS, index);
    return name.empty() ? "algorithm " + std::to_string(index) : name;
}

std::string qualifiedName(const FastInfoset::ResolvedQualName& name)
{
    return name.prefix->empty() ? *name.localName : *name.prefix + ":" + *name.localName;
}

} // namespace Vesk::Tool
