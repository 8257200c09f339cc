// SPDX-License-Identifier: MIT
#ifndef VESKFI_LOSSFILTER_H
#define VESKFI_LOSSFILTER_H

#include "Vesk/XML/DeclHandler.h"
#include "Vesk/XML/LexicalFilterImpl.h"
#include <string>

namespace Vesk::Tool
{

/// Is told what a document says and Fast Infoset, as the library writes it, does not.
class LossListener
{
public:
    /// Part of the document's content: "line 3, column 5: ...".
    virtual void lost(const std::string& what) = 0;
    /// Declarations: those left out, whose effects on the content stay, and those that were never read.
    virtual void noted(const std::string& what) = 0;

protected:
    ~LossListener() = default;
};

/// Watches what an XML parser reports on its way to a FastInfosetWriter for what will not arrive.
///
/// It is its parent's declaration handler.
class LossFilter : public XML::LexicalFilterImpl, public XML::DeclHandler
{
public:
    /// Both are borrowed.
    LossFilter(XML::XMLReader& parser, LossListener& listener);

    void setDocumentLocator(const XML::Locator* locator) override;
    void startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                      const XML::Attributes& attributes) override;
    void skippedEntity(const XML::XMLString& name) override;
    /// The parser's way to tell of a reference in an attribute value that it could not expand.
    void warning(const XML::SAXException& exception) override;

    void startDTD(const XML::XMLString& name, const XML::XMLString& publicId, const XML::XMLString& systemId) override;
    void endDTD() override;

    void attributeDecl(const XML::XMLString& elementName, const XML::XMLString& attributeName,
                       const XML::XMLString& type, const XML::XMLString* mode, const XML::XMLString* value) override;
    void elementDecl(const XML::XMLString& name, const XML::XMLString& model) override;
    void externalEntityDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                            const XML::XMLString& systemId) override;
    void internalEntityDecl(const XML::XMLString& name, const XML::XMLString& value) override;

protected:
    void setupParse() override;

private:
    std::string place() const;

    LossListener& _listener;
    const XML::Locator* _locator = nullptr;
    XML::XMLString _documentTypeName; // until the root element
    std::string _documentTypePlace;
    bool _hasDeclarations = false;
    bool _hasSkippedDeclarations = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_LOSSFILTER_H
