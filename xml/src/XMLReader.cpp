// SPDX-License-Identifier: MIT
#include "Vesk/XML/XMLReader.h"

namespace Vesk::XML
{
const XMLString XMLReader::FEATURE_NAMESPACES = "http://xml.org/sax/features/namespaces";
const XMLString XMLReader::FEATURE_NAMESPACE_PREFIXES = "http://xml.org/sax/features/namespace-prefixes";
const XMLString XMLReader::FEATURE_EXTERNAL_GENERAL_ENTITIES = "http://xml.org/sax/features/external-general-entities";
const XMLString XMLReader::FEATURE_EXTERNAL_PARAMETER_ENTITIES =
    "http://xml.org/sax/features/external-parameter-entities";
const XMLString XMLReader::PROPERTY_DECLARATION_HANDLER = "http://xml.org/sax/properties/declaration-handler";
const XMLString XMLReader::PROPERTY_LEXICAL_HANDLER = "http://xml.org/sax/properties/lexical-handler";

XMLReader::~XMLReader() = default;
} // namespace Vesk::XML
