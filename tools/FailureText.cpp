// SPDX-License-Identifier: MIT
#include "FailureText.h"
#include "Vesk/Exception.h"
#include "Vesk/XML/SAXParseException.h"
#include <new>

namespace Vesk::Tool
{

std::string failureText(const std::exception& exception)
{
    if (const auto* parseError = dynamic_cast<const XML::SAXParseException*>(&exception))
    {
        return "line " + std::to_string(parseError->getLineNumber()) + ", column " +
               std::to_string(parseError->getColumnNumber()) + ": " + parseError->getText();
    }
    // Checks that a malformed document fails are named by the condition alone, which says little without its kind.
    if (dynamic_cast<const LogicException*>(&exception))
        return exception.what();
    if (const auto* ours = dynamic_cast<const Exception*>(&exception); ours && !ours->message().empty())
        return ours->message();
    if (dynamic_cast<const std::bad_alloc*>(&exception))
        return "not enough memory";
    return exception.what();
}

} // namespace Vesk::Tool
