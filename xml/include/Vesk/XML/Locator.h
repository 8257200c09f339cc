// SPDX-License-Identifier: MIT
#ifndef VESK_XML_LOCATOR_H
#define VESK_XML_LOCATOR_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
/// Tells where in the document the event that is being handled ended. Meaningful only inside a handler's callback.
class VESK_XML_API Locator
{
public:
    /// The identifiers of the document or external entity that is being read, empty if unknown.
    virtual const XMLString& getPublicId() const = 0;
    virtual const XMLString& getSystemId() const = 0;

    /// Line and column, both counted from 1; -1 if unknown.
    virtual int getLineNumber() const = 0;
    virtual int getColumnNumber() const = 0;

    virtual ~Locator() = default;
};
} // namespace Vesk::XML

#endif // VESK_XML_LOCATOR_H
