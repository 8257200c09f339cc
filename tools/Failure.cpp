// SPDX-License-Identifier: MIT
#include "Failure.h"
#include "Vesk/Exception.h"
#include "Vesk/XML/SAXParseException.h"
#include <cerrno>
#include <new>
#include <system_error>

namespace Vesk::Tool
{

namespace
{

// What the library says of an encoding algorithm that it does not have.
const char UNKNOWN_ALGORITHM[] = "Invalid decoding defined";
// What it says of an external vocabulary whose URI has a scheme that nobody serves; the URI follows.
const std::string UNKNOWN_SCHEME = "Unknown URI scheme: ";

std::string reasonOf(const std::exception& exception)
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

ExitStatus statusOf(const std::exception& exception)
{
    if (dynamic_cast<const IOException*>(&exception))
        return ExitStatus::STREAM;
    if (dynamic_cast<const UnknownURISchemeException*>(&exception))
        return ExitStatus::MISSING;
    if (const auto* ours = dynamic_cast<const Exception*>(&exception))
        return ours->message() == UNKNOWN_ALGORITHM ? ExitStatus::MISSING : ExitStatus::MALFORMED;
    // An index beyond a table.
    if (dynamic_cast<const std::out_of_range*>(&exception))
        return ExitStatus::MALFORMED;
    return ExitStatus::INTERNAL;
}

} // namespace

Failure::Failure(ExitStatus status, const std::string& text)
    : std::runtime_error(text),
      _status(status)
{
}

Failure Failure::of(const std::string& file, unsigned long octetOffset, const std::exception& exception)
{
    // What is no fault of the document has no place in it.
    const bool hasPlace = statusOf(exception) == ExitStatus::MALFORMED && !dynamic_cast<const Failure*>(&exception);
    return of(hasPlace ? file + ": octet " + std::to_string(octetOffset) : file, exception);
}

Failure Failure::of(const std::string& file, const std::exception& exception)
{
    if (const auto* failure = dynamic_cast<const Failure*>(&exception))
        return *failure;
    const ExitStatus status = statusOf(exception);
    std::string reason = reasonOf(exception);
    if (dynamic_cast<const UnknownURISchemeException*>(&exception) && reason.rfind(UNKNOWN_SCHEME, 0) == 0)
        reason = missingVocabulary(reason.substr(UNKNOWN_SCHEME.size()));
    else if (status == ExitStatus::MISSING)
        reason += ": the document uses an encoding algorithm that is not built in";
    return Failure(status, file + ": " + reason);
}

std::string Failure::missingVocabulary(const std::string& uri)
{
    return "the document needs the external vocabulary " + uri + " (give it with --vocab " + uri + "=FILE)";
}

FileError::FileError(const std::string& file, const std::string& reason)
    : Failure(ExitStatus::STREAM, file + ": " + reason)
{
}

FileError::FileError(const std::string& file, int errorNumber)
    : FileError(file, std::generic_category().message(errorNumber))
{
}

FileError FileError::exists(const std::string& file)
{
    return FileError(file, "exists already (-f overwrites it)");
}

void throwWriteError(const std::string& file, int errorNumber)
{
    if (errorNumber == EPIPE)
        throw BrokenPipe(file, errorNumber);
    throw FileError(file, errorNumber);
}

UsageError::UsageError(const std::string& text, const std::string& command)
    : Failure(ExitStatus::USAGE, text + " (see veskfi " + command + (command.empty() ? "" : " ") + "--help)")
{
}

} // namespace Vesk::Tool
