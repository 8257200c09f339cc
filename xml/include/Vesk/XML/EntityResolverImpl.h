// SPDX-License-Identifier: MIT
#ifndef VESK_XML_ENTITYRESOLVERIMPL_H
#define VESK_XML_ENTITYRESOLVERIMPL_H

#include "Vesk/XML/EntityResolver.h"

namespace Vesk::XML
{
/// Opens system identifiers (URIs or paths) through URIStreamOpener::defaultOpener().
class VESK_XML_API EntityResolverImpl : public EntityResolver
{
public:
    /// Null if the system identifier cannot be opened.
    InputSource* resolveEntity(const XMLString* publicId, const XMLString& systemId) override;
    void releaseInputSource(InputSource* source) override;
};
} // namespace Vesk::XML

#endif // VESK_XML_ENTITYRESOLVERIMPL_H
