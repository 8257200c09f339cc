// SPDX-License-Identifier: MIT
#include "CheckCommand.h"
#include "CommandLine.h"
#include "CompareCommand.h"
#include "ConvertCommand.h"
#include "DecodeCommand.h"
#include "EncodeCommand.h"
#include "Failure.h"
#include "InspectCommand.h"
#include "Messages.h"
#include "StatisticsCommand.h"
#include "UnfinishedFiles.h"
#include <csignal>
#include <exception>
#include <new>
#include <string>

using namespace Vesk::Tool;

namespace
{

int report(ExitStatus status, const std::string& text)
{
    Messages().failure(text);
    return static_cast<int>(status);
}

ExitStatus run(int argc, char* argv[])
{
    EncodeCommand encode;
    DecodeCommand decode;
    CompareCommand compare;
    InspectCommand inspect;
    StatisticsCommand statistics;
    CheckCommand check;
    ConvertCommand convert(encode, decode);
    Command* const command =
        readCommandLine({&encode, &decode, &inspect, &statistics, &check, &compare}, convert, argc, argv);
    return command ? command->run() : ExitStatus::SUCCESS;
}

} // namespace

int main(int argc, char* argv[])
{
    // A reader that went away and a file that may not grow are errors of the write, to be cleaned up after.
    const auto pipeHandler = std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    UnfinishedFiles::removeOnSignals();
    try
    {
        return static_cast<int>(run(argc, argv));
    }
    catch (const BrokenPipe&)
    {
        // Quietly, as every other tool in a pipe: by the signal, unless the caller has it ignored.
        std::signal(SIGPIPE, pipeHandler);
        std::raise(SIGPIPE);
        return static_cast<int>(ExitStatus::STREAM);
    }
    catch (const Failure& failure)
    {
        return report(failure.status(), failure.what());
    }
    catch (const std::bad_alloc&)
    {
        return report(ExitStatus::INTERNAL, "not enough memory");
    }
    catch (const std::exception& exception)
    {
        return report(ExitStatus::INTERNAL, exception.what());
    }
}
