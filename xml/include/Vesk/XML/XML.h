// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XML_H
#define VESK_XML_XML_H

#include "Vesk/Foundation.h"

/// Marks what libVeskXML exports; everything else is hidden.
#define VESK_XML_API [[gnu::visibility("default")]]

/// SAX2 interfaces, a parser of XML text, an XML text writer and filters between them.
namespace Vesk::XML
{
}

#endif // VESK_XML_XML_H
