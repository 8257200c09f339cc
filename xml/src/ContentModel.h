// SPDX-License-Identifier: MIT
#ifndef VESK_XML_CONTENTMODEL_H
#define VESK_XML_CONTENTMODEL_H

#include "Vesk/XML/XMLString.h"
#include <expat.h>

namespace Vesk::XML
{
/// The text of an element type's content model, without white space: "EMPTY", "(#PCDATA|b)*", "(a,(b|c)+)".
XMLString contentModelText(const XML_Content& model);
} // namespace Vesk::XML

#endif // VESK_XML_CONTENTMODEL_H
