// SPDX-License-Identifier: MIT
#ifndef VESKFI_FAILURE_H
#define VESKFI_FAILURE_H

#include "ExitStatus.h"
#include <exception>
#include <stdexcept>
#include <string>

namespace Vesk::Tool
{

/// Something that ends a command, or the work on one file. what() is the line for the user.
class Failure : public std::runtime_error
{
public:
    Failure(ExitStatus status, const std::string& text);

    /// What goes wrong with the file, whatever of the libraries it was thrown by: "file: reason", with the place in the
    /// document if it is known. A Failure is returned as it is.
    static Failure of(const std::string& file, const std::exception& exception);
    /// The same with the octet of the document in which it went wrong, for a binary one.
    static Failure of(const std::string& file, unsigned long octetOffset, const std::exception& exception);

    /// The reason where a document names an external vocabulary that was not given.
    static std::string missingVocabulary(const std::string& uri);

    ExitStatus status() const { return _status; }

private:
    ExitStatus _status;
};

/// A file or stream cannot be read or written: "file: reason".
class FileError : public Failure
{
public:
    FileError(const std::string& file, const std::string& reason);
    /// The reason is the system's text for the error number.
    FileError(const std::string& file, int errorNumber);

    /// A file that must not be replaced.
    static FileError exists(const std::string& file);
};

/// Nobody reads any more what is written, which is not worth a message.
class BrokenPipe : public FileError
{
public:
    using FileError::FileError;
};

/// Throws what a failed write makes of this error number: a BrokenPipe or another FileError.
[[noreturn]] void throwWriteError(const std::string& file, int errorNumber);

/// A command line that makes no sense. what() says why and where to look.
class UsageError : public Failure
{
public:
    /// command: whose help to look at; that of the tool if it is empty.
    explicit UsageError(const std::string& text, const std::string& command = std::string());
};

} // namespace Vesk::Tool

#endif // VESKFI_FAILURE_H
