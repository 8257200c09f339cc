// SPDX-License-Identifier: MIT
#ifndef VESK_XML_LEXICALHANDLER_H
#define VESK_XML_LEXICALHANDLER_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
/// Receives what belongs to the form of a document rather than to its content. Arguments are borrowed for the call.
class VESK_XML_API LexicalHandler
{
public:
    /// The document type declaration. Identifiers that are absent are empty; so is the name if the reader's format
    /// does not carry it. Everything up to endDTD belongs to the declaration.
    virtual void startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId) = 0;
    virtual void endDTD() = 0;

    /// Between these two calls lies the replacement text of an entity.
    virtual void startEntity(const XMLString& name) = 0;
    virtual void endEntity(const XMLString& name) = 0;

    /// The character data between these two calls is one CDATA section.
    virtual void startCDATA() = 0;
    virtual void endCDATA() = 0;

    /// A comment: length octets of UTF-8 from ch + start.
    virtual void comment(const XMLChar ch[], int start, int length) = 0;

    virtual ~LexicalHandler() = default;
};
} // namespace Vesk::XML

#endif // VESK_XML_LEXICALHANDLER_H
