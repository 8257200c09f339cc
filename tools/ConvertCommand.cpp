// SPDX-License-Identifier: MIT
#include "ConvertCommand.h"
#include "CommandOptions.h"
#include "ConversionCommand.h"
#include "DocumentKind.h"
#include "Failure.h"
#include "InputFile.h"
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

// Opening a pipe to ask it would wait for a writer.
bool canBeReadTwice(const std::string& file)
{
    std::error_code error;
    return file != "-" && !std::filesystem::is_other(std::filesystem::status(file, error));
}

} // namespace

ConvertCommand::ConvertCommand(ConversionCommand& encode, ConversionCommand& decode)
    : _encode(encode),
      _decode(decode)
{
}

const char* ConvertCommand::examples() const
{
    return "Examples:\n"
           "  veskfi document.xml                          write document.finf\n"
           "  veskfi document.finf                         write document.xml\n"
           "  veskfi COMMAND --help                        what else a command can do\n";
}

void ConvertCommand::declareOptions(CommandOptions& options)
{
    options.addArgument("FILE", _file, "the file to convert, to its sibling");
    options.addFlag("-f,--force", _mayReplace, "overwrite the sibling");
}

ExitStatus ConvertCommand::run()
{
    if (_file.empty())
        throw UsageError("no command and no file");
    // The first octets of a pipe are gone once they have been looked at.
    if (!canBeReadTwice(_file))
        throw FileError(_file, "is no regular file: say veskfi encode or veskfi decode");
    if (_file.find_first_of("./") == std::string::npos && ::access(_file.c_str(), F_OK) != 0)
        throw UsageError(_file + " is neither a command nor a file");
    InputFile file(_file);
    switch (kindOf(file.start()))
    {
    case DocumentKind::XML:
        return _encode.run(_file, _mayReplace);
    case DocumentKind::FAST_INFOSET:
        return _decode.run(_file, _mayReplace);
    default:
        throw Failure(ExitStatus::MALFORMED, file.name() + ": neither XML nor Fast Infoset");
    }
}

} // namespace Vesk::Tool
