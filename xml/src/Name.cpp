// SPDX-License-Identifier: MIT
#include "Vesk/XML/Name.h"

namespace Vesk::XML
{
void Name::split(const XMLString& qname, XMLString& prefix, XMLString& localName)
{
    const std::size_t colon = qname.find(':');
    if (colon == XMLString::npos)
    {
        prefix.clear();
        localName = qname;
    }
    else
    {
        prefix.assign(qname, 0, colon);
        localName.assign(qname, colon + 1, XMLString::npos);
    }
}
} // namespace Vesk::XML
