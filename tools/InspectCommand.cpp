// SPDX-License-Identifier: MIT
#include "InspectCommand.h"
#include "CommandOptions.h"
#include "InputFile.h"
#include "InspectionJSON.h"
#include "InspectionText.h"
#include "Inspector.h"
#include "OutputFile.h"
#include "Terminal.h"
#include <unistd.h>

namespace Vesk::Tool
{

const char* InspectCommand::examples() const
{
    return "Examples:\n"
           "  veskfi inspect a.finf | less       each part of a.finf with its octets and what it means\n"
           "  veskfi inspect --full a.finf       the same with all of long texts\n"
           "  veskfi inspect --json a.finf       one JSON object a line, for programs\n";
}

void InspectCommand::declareOptions(CommandOptions& options)
{
    options.addArgument("FILE", _file, "the document; - is standard input");
    options.addFlag("--full", _isFull, "shorten nothing");
    options.addFlag("--json", _asJSON, "one JSON object a line instead of text");
    _vocabularies.declareOption(options);
}

ExitStatus InspectCommand::run()
{
    _vocabularies.install();
    InputFile input(_file);
    OutputFile output("-", true, OutputFile::USUAL_RIGHTS);
    InspectionText text(output, Terminal(STDOUT_FILENO), _isFull);
    InspectionJSON json(output);
    InspectionWriter& writer = _asJSON ? static_cast<InspectionWriter&>(json) : text;
    try
    {
        Inspector(writer).inspect(input, input.name());
    }
    catch (const DocumentFailure&)
    {
        output.commit(); // what has been read so far
        throw;
    }
    output.commit();
    return ExitStatus::SUCCESS;
}

} // namespace Vesk::Tool
