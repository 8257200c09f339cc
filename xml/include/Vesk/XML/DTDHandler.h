// SPDX-License-Identifier: MIT
#ifndef VESK_XML_DTDHANDLER_H
#define VESK_XML_DTDHANDLER_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
/// Receives the notations and unparsed entities of a document. An identifier that is absent is a null pointer.
/// Arguments are borrowed for the call.
class VESK_XML_API DTDHandler
{
public:
    /// A declaration of a notation.
    virtual void notationDecl(const XMLString& name, const XMLString* publicId, const XMLString* systemId) = 0;
    /// A declaration of an entity that is not XML, but of a kind that the notation names.
    virtual void unparsedEntityDecl(const XMLString& name, const XMLString* publicId, const XMLString& systemId,
                                    const XMLString& notationName) = 0;

    virtual ~DTDHandler() = default;
};
} // namespace Vesk::XML

#endif // VESK_XML_DTDHANDLER_H
