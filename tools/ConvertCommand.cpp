// SPDX-License-Identifier: MIT
#include "ConvertCommand.h"
#include "CommandOptions.h"
#include "InputFile.h"

namespace Vesk::Tool
{

ConvertCommand::ConvertCommand(ConversionCommand& encode, ConversionCommand& decode)
    : _encode(encode),
      _decode(decode)
{
}

void ConvertCommand::declareOptions(CommandOptions& options)
{
    options.addArgument("FILE", _file, "the file to convert");
}

ExitStatus ConvertCommand::run()
{
    constexpr int FIRST_OCTET = 0xE0;
    ConversionCommand& command = InputFile(_file).peek() == FIRST_OCTET ? _decode : _encode;
    return command.run(_file);
}

} // namespace Vesk::Tool
