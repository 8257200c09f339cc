// SPDX-License-Identifier: MIT
#include "ResolvedSource.h"
#include "Vesk/URI.h"
#include "Vesk/XML/EntityResolverImpl.h"

namespace Vesk::XML
{
ResolvedSource resolveSource(EntityResolver& resolver, const XMLString* publicId, const XMLString& systemId)
{
    ResolvedSource source(resolver.resolveEntity(publicId, systemId), ReleaseSource{&resolver});
    if (!source)
        return source;
    if (source->getSystemId().empty())
        source->setSystemId(systemId);
    if (source->getByteStream() || source->getCharacterStream())
        return source;
    return openSource(source->getSystemId());
}

ResolvedSource openSource(const XMLString& systemId)
{
    static EntityResolverImpl opener; // has no state
    return ResolvedSource(opener.resolveEntity(nullptr, systemId), ReleaseSource{&opener});
}

XMLString absoluteSystemId(const XMLString& base, const XMLString& systemId)
{
    if (base.empty() || systemId.empty() || !URI(systemId).getScheme().empty())
        return systemId;
    if (systemId.front() == '/')
    {
        const URI baseURI(base);
        return baseURI.getScheme().empty() ? systemId : baseURI.getScheme() + "://" + baseURI.getAuthority() + systemId;
    }
    const std::size_t folderEnd = base.find_last_of('/', base.find_first_of("?#"));
    return folderEnd == XMLString::npos ? systemId : base.substr(0, folderEnd + 1) + systemId;
}
} // namespace Vesk::XML
