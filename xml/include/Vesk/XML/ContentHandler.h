// SPDX-License-Identifier: MIT
#ifndef VESK_XML_CONTENTHANDLER_H
#define VESK_XML_CONTENTHANDLER_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
class Attributes;
class Locator;

/// Receives the logical content of a document.
///
/// Order: setDocumentLocator at most once, startDocument, the document's items in document order, endDocument.
/// For an element: startPrefixMapping for each of its namespace declarations, startElement, its content, endElement,
/// endPrefixMapping for each of them. Adjacent character data may be split over several calls of characters, never
/// within a character.
///
/// Every argument is borrowed and lives until the callback returns. An exception thrown by a callback ends the parse
/// and reaches the caller of parse unchanged.
class VESK_XML_API ContentHandler
{
public:
    /// Lends a locator that is good until endDocument.
    virtual void setDocumentLocator(const Locator* locator) = 0;

    /// The start and the end of the document. The end is not reported when the parse fails.
    virtual void startDocument() = 0;
    virtual void endDocument() = 0;

    /// An element with its namespace URI and local name. The URI is empty for an element in no namespace; the
    /// qualified name is empty where the reader does not know it.
    virtual void startElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                              const Attributes& attributes) = 0;
    virtual void endElement(const XMLString& uri, const XMLString& localName, const XMLString& qname) = 0;

    /// Character data: length octets of UTF-8 from ch + start. The readers of this family pass text that is followed
    /// by a zero octet; whoever forwards text should do so, too.
    virtual void characters(const XMLChar ch[], int start, int length) = 0;
    virtual void ignorableWhitespace(const XMLChar ch[], int start, int length) = 0;

    /// A processing instruction; the data is empty if there is none.
    virtual void processingInstruction(const XMLString& target, const XMLString& data) = 0;

    /// A namespace declaration of the element that starts next. The default namespace has the empty prefix; an empty
    /// URI takes the default namespace back.
    virtual void startPrefixMapping(const XMLString& prefix, const XMLString& uri) = 0;
    virtual void endPrefixMapping(const XMLString& prefix) = 0;

    /// A reference to an entity whose replacement text was not read: "name" in content; in the document type declaration
    /// "%name" for a parameter entity, "[dtd]" for the external subset.
    virtual void skippedEntity(const XMLString& name) = 0;

    virtual ~ContentHandler() = default;
};
} // namespace Vesk::XML

#endif // VESK_XML_CONTENTHANDLER_H
