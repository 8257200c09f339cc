// SPDX-License-Identifier: MIT
#ifndef VESK_XML_NAME_H
#define VESK_XML_NAME_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
/// Operations on qualified names.
class VESK_XML_API Name
{
public:
    Name() = delete;

    /// Takes "prefix:local" apart at the first colon. Without a colon the prefix is empty and the local name is all of
    /// qname. The results may not be qname itself.
    static void split(const XMLString& qname, XMLString& prefix, XMLString& localName);
};
} // namespace Vesk::XML

#endif // VESK_XML_NAME_H
