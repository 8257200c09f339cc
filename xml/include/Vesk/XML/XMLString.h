// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XMLSTRING_H
#define VESK_XML_XMLSTRING_H

#include "Vesk/XML/XML.h"
#include <string>

namespace Vesk::XML
{
/// One UTF-8 code unit.
using XMLChar = char;

/// Text in UTF-8.
using XMLString = std::string;
} // namespace Vesk::XML

#endif // VESK_XML_XMLSTRING_H
