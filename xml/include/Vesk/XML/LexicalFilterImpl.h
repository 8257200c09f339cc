// SPDX-License-Identifier: MIT
#ifndef VESK_XML_LEXICALFILTERIMPL_H
#define VESK_XML_LEXICALFILTERIMPL_H

#include "Vesk/XML/LexicalHandler.h"
#include "Vesk/XML/XMLFilterImpl.h"

namespace Vesk::XML
{
/// An XMLFilterImpl that passes on the lexical events, too, so that derived classes can override them.
///
/// parse makes the filter its parent's lexical handler; set the lexical handler, which is borrowed, on the filter.
class VESK_XML_API LexicalFilterImpl : public XMLFilterImpl, public LexicalHandler
{
public:
    using XMLFilterImpl::XMLFilterImpl;

    using XMLFilterImpl::setProperty;
    void setProperty(const XMLString& propertyId, void* value) override;
    void* getProperty(const XMLString& propertyId) const override;

    void startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId) override;
    void endDTD() override;
    void startEntity(const XMLString& name) override;
    void endEntity(const XMLString& name) override;
    void startCDATA() override;
    void endCDATA() override;
    void comment(const XMLChar ch[], int start, int length) override;

protected:
    void setupParse() override;

private:
    LexicalHandler* _lexicalHandler = nullptr;
};
} // namespace Vesk::XML

#endif // VESK_XML_LEXICALFILTERIMPL_H
