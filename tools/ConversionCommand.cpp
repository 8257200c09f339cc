// SPDX-License-Identifier: MIT
#include "ConversionCommand.h"
#include "CommandOptions.h"
#include "Failure.h"
#include "InputFile.h"
#include "OutputFile.h"
#include <exception>

namespace Vesk::Tool
{

void ConversionCommand::declareOptions(CommandOptions& options)
{
    options.addArgument("IN", _input, "the file to read; - is standard input");
    options.addOption("-o,--output", "FILE", _output, "the file to write; - is standard output");
}

ExitStatus ConversionCommand::run(const std::string& file)
{
    _input = file;
    return run();
}

ExitStatus ConversionCommand::run()
{
    InputFile input(_input);
    OutputFile output(_output);
    try
    {
        convert(input, output);
    }
    catch (const std::exception& exception)
    {
        throw Failure::of(input.name(), exception);
    }
    output.commit();
    return ExitStatus::SUCCESS;
}

} // namespace Vesk::Tool
