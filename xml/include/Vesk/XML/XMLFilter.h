// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XMLFILTER_H
#define VESK_XML_XMLFILTER_H

#include "Vesk/XML/XMLReader.h"

namespace Vesk::XML
{
/// A reader that gets its events from another reader, its parent, which is borrowed.
class VESK_XML_API XMLFilter : public XMLReader
{
public:
    /// The parent, or null.
    virtual XMLReader* getParent() const = 0;
    virtual void setParent(XMLReader* parent) = 0;
};
} // namespace Vesk::XML

#endif // VESK_XML_XMLFILTER_H
