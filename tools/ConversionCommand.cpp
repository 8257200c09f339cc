// SPDX-License-Identifier: MIT
#include "ConversionCommand.h"
#include "FailureText.h"
#include "FileError.h"
#include "InputFile.h"
#include "OutputFile.h"
#include <CLI/CLI.hpp>

namespace Vesk::Tool
{

ConversionCommand::ConversionCommand(CLI::App& tool, const std::string& name, const std::string& description)
    : Command(tool, name, description)
{
    options().add_option("IN", _input, "the file to read; - is standard input")->capture_default_str();
    options().add_option("-o,--output", _output, "the file to write; - is standard output")->capture_default_str();
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
