// SPDX-License-Identifier: MIT
#include "Vesk/XML/SAXParseException.h"

namespace Vesk::XML
{
namespace
{
std::string withPlace(const std::string& text, const XMLString& systemId, int lineNumber, int columnNumber)
{
    const std::string source = systemId.empty() ? "" : systemId + ", ";
    return text + " (" + source + "line " + std::to_string(lineNumber) + ", column " + std::to_string(columnNumber) +
           ")";
}
} // namespace

SAXParseException::SAXParseException(const std::string& text, const XMLString& publicId, const XMLString& systemId,
                                     int lineNumber, int columnNumber)
    : SAXException(withPlace(text, systemId, lineNumber, columnNumber)),
      _text(text),
      _publicId(publicId),
      _systemId(systemId),
      _lineNumber(lineNumber),
      _columnNumber(columnNumber)
{
}

const char* SAXParseException::name() const noexcept
{
    return "SAX Parse Exception";
}

const char* SAXParseException::className() const noexcept
{
    return "SAXParseException";
}

Exception* SAXParseException::clone() const
{
    return new SAXParseException(*this);
}

void SAXParseException::rethrow() const
{
    throw SAXParseException(*this);
}
} // namespace Vesk::XML
