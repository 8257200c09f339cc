// SPDX-License-Identifier: MIT
#ifndef VESK_XML_ERRORHANDLER_H
#define VESK_XML_ERRORHANDLER_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
class SAXException;

/// Is told of errors before the reader throws them; a callback may throw an exception of its own instead.
class VESK_XML_API ErrorHandler
{
public:
    /// What does not keep the reader from going on.
    virtual void warning(const SAXException& exception) = 0;
    virtual void error(const SAXException& exception) = 0;
    /// The document is not well-formed; the reader throws this exception after the call.
    virtual void fatalError(const SAXException& exception) = 0;

    virtual ~ErrorHandler() = default;
};
} // namespace Vesk::XML

#endif // VESK_XML_ERRORHANDLER_H
