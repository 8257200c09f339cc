// SPDX-License-Identifier: MIT
#include "Vesk/XML/EntityResolverImpl.h"
#include "Vesk/Exception.h"
#include "Vesk/URIStreamOpener.h"
#include "Vesk/XML/InputSource.h"
#include <memory>

namespace Vesk::XML
{
InputSource* EntityResolverImpl::resolveEntity(const XMLString* publicId, const XMLString& systemId)
{
    std::unique_ptr<std::istream> stream;
    try
    {
        stream = URIStreamOpener::defaultOpener().open(systemId);
    }
    catch (const Exception&)
    {
        return nullptr;
    }
    auto source = std::make_unique<InputSource>(systemId);
    if (publicId)
        source->setPublicId(*publicId);
    source->setByteStream(stream.release());
    return source.release();
}

void EntityResolverImpl::releaseInputSource(InputSource* source)
{
    if (source)
        delete source->getByteStream();
    delete source;
}
} // namespace Vesk::XML
