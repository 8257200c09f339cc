// SPDX-License-Identifier: MIT
#ifndef VESK_XML_RESOLVEDSOURCE_H
#define VESK_XML_RESOLVEDSOURCE_H

#include "Vesk/XML/EntityResolver.h"
#include "Vesk/XML/InputSource.h"
#include <memory>

namespace Vesk::XML
{
/// Hands an input source back to the resolver that it came from.
struct ReleaseSource
{
    EntityResolver* resolver;

    void operator()(InputSource* source) const { resolver->releaseInputSource(source); }
};

/// An input source on loan from a resolver.
using ResolvedSource = std::unique_ptr<InputSource, ReleaseSource>;

/// What the resolver has for the system identifier, with a stream and a system identifier; null if there is nothing.
/// A resolver may also answer with another system identifier, which is then opened.
ResolvedSource resolveSource(EntityResolver& resolver, const XMLString* publicId, const XMLString& systemId);

/// What EntityResolverImpl opens for the system identifier; null if it cannot.
ResolvedSource openSource(const XMLString& systemId);

/// The system identifier as seen from the document with the identifier base.
XMLString absoluteSystemId(const XMLString& base, const XMLString& systemId);
} // namespace Vesk::XML

#endif // VESK_XML_RESOLVEDSOURCE_H
