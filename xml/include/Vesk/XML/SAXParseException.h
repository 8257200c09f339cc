// SPDX-License-Identifier: MIT
#ifndef VESK_XML_SAXPARSEEXCEPTION_H
#define VESK_XML_SAXPARSEEXCEPTION_H

#include "Vesk/XML/SAXException.h"
#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
/// An error in the text of a document, with its place.
class VESK_XML_API SAXParseException : public SAXException
{
public:
    /// Line and column count from 1. The message gets the place appended: "text (line 3, column 7)", with the system
    /// identifier in front of the line if there is one.
    SAXParseException(const std::string& text, const XMLString& publicId, const XMLString& systemId, int lineNumber,
                      int columnNumber);

    /// What is wrong, without the place.
    const std::string& getText() const { return _text; }
    const XMLString& getPublicId() const { return _publicId; }
    const XMLString& getSystemId() const { return _systemId; }
    int getLineNumber() const { return _lineNumber; }
    int getColumnNumber() const { return _columnNumber; }

    /// As in Exception.
    const char* name() const noexcept override;
    const char* className() const noexcept override;
    Exception* clone() const override;
    [[noreturn]] void rethrow() const override;

private:
    std::string _text;
    XMLString _publicId;
    XMLString _systemId;
    int _lineNumber;
    int _columnNumber;
};
} // namespace Vesk::XML

#endif // VESK_XML_SAXPARSEEXCEPTION_H
