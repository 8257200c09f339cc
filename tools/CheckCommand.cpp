// SPDX-License-Identifier: MIT
#include "CheckCommand.h"
#include "DocumentReader.h"
#include "InputFile.h"
#include "Quoted.h"
#include "Vesk/NullOutputStream.h"
#include "Vesk/XML/XMLWriter.h"

namespace Vesk::Tool
{

const char* CheckCommand::examples() const
{
    return "Examples:\n"
           "  veskfi check *.finf                a line for each file that is malformed: what and where\n"
           "  veskfi check < a.finf && echo good\n";
}

ExitStatus CheckCommand::examine(InputFile& input, std::string& text)
{
    // The writer of XML text knows what the parser takes no notice of: names, characters, and what may stand where.
    NullOutputStream nowhere;
    XML::XMLWriter writer(nowhere, XML::XMLWriter::CANONICAL);
    DocumentReader reader;
    reader.parser().initialize(&writer);
    try
    {
        reader.read(input, input.name());
        return ExitStatus::SUCCESS;
    }
    catch (const DocumentFailure& failure)
    {
        text = shown(failure.what(), ALL_CHARACTERS) + "\n";
        return failure.status();
    }
}

} // namespace Vesk::Tool
