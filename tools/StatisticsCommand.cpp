// SPDX-License-Identifier: MIT
#include "StatisticsCommand.h"
#include "CommandOptions.h"
#include "DocumentReader.h"
#include "DocumentStatistics.h"
#include "InputFile.h"
#include "StatisticsJSON.h"
#include "StatisticsText.h"
#include "Terminal.h"
#include <unistd.h>

namespace Vesk::Tool
{

const char* StatisticsCommand::examples() const
{
    return "Examples:\n"
           "  veskfi stats a.finf                why a.finf is as large as it is\n"
           "  veskfi stats --json *.finf         one JSON object a line for each file\n";
}

void StatisticsCommand::declareOwnOptions(CommandOptions& options)
{
    options.addFlag("--json", _asJSON, "one JSON object a line for each document instead of tables");
}

ExitStatus StatisticsCommand::examine(InputFile& input, std::string& text)
{
    DocumentStatistics statistics;
    DocumentReader reader(&statistics);
    reader.read(input, input.name());
    if (_asJSON)
    {
        text = statisticsJSON(input.name(), statistics) + "\n";
        return ExitStatus::SUCCESS;
    }
    if (!_isFirst)
        text += '\n';
    _isFirst = false;
    text += StatisticsText(Terminal(STDOUT_FILENO)).of(input.name(), statistics);
    return ExitStatus::SUCCESS;
}

} // namespace Vesk::Tool
