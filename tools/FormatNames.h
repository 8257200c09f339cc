// SPDX-License-Identifier: MIT
#ifndef VESKFI_FORMATNAMES_H
#define VESKFI_FORMATNAMES_H

#include "Vesk/FastInfoset/StructureObserver.h"
#include <string>

// What the tool calls the structures of the format, in all of its output.

namespace Vesk::Tool
{

/// "element", "character chunk", ...
const char* nameOf(FastInfoset::StructureObserver::Structure structure);

/// What holds the entries: "attribute values"; empty for no table.
const char* nameOf(FastInfoset::StructureObserver::Table table);

/// "string", "terminator", ...
const char* nameOf(FastInfoset::StructureObserver::Part::Kind kind);

/// How characters are stored: "UTF-8", "alphabet 1 (numeric)", "int".
std::string nameOf(FastInfoset::StructureObserver::Form form, unsigned int index);

/// "p:name" or "name".
std::string qualifiedName(const FastInfoset::ResolvedQualName& name);

} // namespace Vesk::Tool

#endif // VESKFI_FORMATNAMES_H
