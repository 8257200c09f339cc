// SPDX-License-Identifier: MIT
#include "CommandLine.h"
#include "ConvertCommand.h"
#include "DecodeCommand.h"
#include "EncodeCommand.h"
#include "Failure.h"
#include <csignal>
#include <exception>
#include <iostream>
#include <string>

using namespace Vesk::Tool;

namespace
{

int report(ExitStatus status, std::string text)
{
    // Names and texts of documents may hold line feeds; one failure is one line.
    for (char& c : text)
    {
        if (c == '\n' || c == '\r')
            c = ' ';
    }
    std::cerr << "veskfi: " << text << std::endl;
    return static_cast<int>(status);
}

} // namespace

int main(int argc, char* argv[])
{
    // A reader that went away and a file that may not grow are errors of the write, to be reported like any other.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try
    {
        EncodeCommand encode;
        DecodeCommand decode;
        ConvertCommand convert(encode, decode);
        Command* const command = readCommandLine({&encode, &decode}, convert, argc, argv);
        return static_cast<int>(command ? command->run() : ExitStatus::SUCCESS);
    }
    catch (const UsageError& mistake)
    {
        return report(mistake.status(), std::string(mistake.what()) + " (see veskfi --help)");
    }
    catch (const Failure& failure)
    {
        return report(failure.status(), failure.what());
    }
    catch (const std::exception& exception)
    {
        return report(ExitStatus::INTERNAL, exception.what());
    }
}
