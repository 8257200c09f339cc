// SPDX-License-Identifier: MIT
#ifndef VESK_XML_SAXEXCEPTION_H
#define VESK_XML_SAXEXCEPTION_H

#include "Vesk/Exception.h"
#include "Vesk/XML/XML.h"

namespace Vesk::XML
{
/// A failure while a document is read or written as SAX events.
VESK_DECLARE_EXCEPTION(VESK_XML_API, SAXException, RuntimeException);
/// A feature or property whose name a reader does not know.
VESK_DECLARE_EXCEPTION(VESK_XML_API, SAXNotRecognizedException, SAXException);
/// A value that a reader cannot give a feature or property.
VESK_DECLARE_EXCEPTION(VESK_XML_API, SAXNotSupportedException, SAXException);
} // namespace Vesk::XML

#endif // VESK_XML_SAXEXCEPTION_H
