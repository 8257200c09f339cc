// SPDX-License-Identifier: MIT
#include "Vesk/XML/SAXException.h"

namespace Vesk::XML
{
VESK_IMPLEMENT_EXCEPTION(SAXException, RuntimeException, "SAX Exception");
VESK_IMPLEMENT_EXCEPTION(SAXNotRecognizedException, SAXException, "Unrecognized SAX feature or property identifier");
VESK_IMPLEMENT_EXCEPTION(SAXNotSupportedException, SAXException, "Unsupported SAX feature or property value");
} // namespace Vesk::XML
