// SPDX-License-Identifier: MIT
#ifndef VESK_XML_ENTITYRESOLVER_H
#define VESK_XML_ENTITYRESOLVER_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
class InputSource;

/// Finds the input for an external entity.
class VESK_XML_API EntityResolver
{
public:
    /// The input for this entity, or null if there is none. The source and its stream belong to the resolver; the
    /// caller hands them back with releaseInputSource.
    virtual InputSource* resolveEntity(const XMLString* publicId, const XMLString& systemId) = 0;
    virtual void releaseInputSource(InputSource* source) = 0;

    virtual ~EntityResolver() = default;
};
} // namespace Vesk::XML

#endif // VESK_XML_ENTITYRESOLVER_H
