// SPDX-License-Identifier: MIT
#ifndef VESK_XML_DECLHANDLER_H
#define VESK_XML_DECLHANDLER_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
/// Receives the declarations of the document type definition that DTDHandler does not. Arguments are borrowed for the
/// call; what is absent is a null pointer.
class VESK_XML_API DeclHandler
{
public:
    /// An attribute of the element elementName. The mode is "#IMPLIED", "#REQUIRED", "#FIXED" or null, the value is
    /// the default value or null.
    virtual void attributeDecl(const XMLString& elementName, const XMLString& attributeName, const XMLString& type,
                               const XMLString* mode, const XMLString* value) = 0;
    /// An element type with its content model, white space removed.
    virtual void elementDecl(const XMLString& name, const XMLString& model) = 0;
    /// A parsed external entity; the name of a parameter entity starts with "%".
    virtual void externalEntityDecl(const XMLString& name, const XMLString* publicId, const XMLString& systemId) = 0;
    /// An internal entity with its replacement text; the name of a parameter entity starts with "%".
    virtual void internalEntityDecl(const XMLString& name, const XMLString& value) = 0;

    virtual ~DeclHandler() = default;
};
} // namespace Vesk::XML

#endif // VESK_XML_DECLHANDLER_H
