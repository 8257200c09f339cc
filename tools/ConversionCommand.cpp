// SPDX-License-Identifier: MIT
#include "ConversionCommand.h"
#include "CommandOptions.h"
#include "FailureText.h"
#include "FileError.h"
#include "InputFile.h"
#include "OutputFile.h"
#include <exception>

namespace Vesk::Tool
{

void ConversionCommand::declareOptions(CommandOptions& options)
{
    options.addArgument("IN", _input, "the file to read; - is standard input");
    options.addOption("-o,--output", _output, "the file to write; - is standard output");
}

ExitStatus ConversionCommand::run()
{
    InputFile input(_input);
    OutputFile output(_output);
    try
    {
        convert(input, output);
    }
    catch (const FileError&)
    {
        throw;
    }
    catch (const std::exception& exception)
    {
        throw FileError(input.name(), failureText(exception));
    }
    output.commit();
    return ExitStatus::SUCCESS;
}

} // namespace Vesk::Tool
