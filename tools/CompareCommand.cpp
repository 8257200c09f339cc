// SPDX-License-Identifier: MIT
#include "CompareCommand.h"
#include "CommandOptions.h"
#include "DocumentKind.h"
#include "Failure.h"
#include "InputFile.h"
#include "Progress.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/MemoryInputStream.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/XMLWriter.h"
#include <algorithm>
#include <cerrno>
#include <iostream>
#include <iterator>
#include <sstream>

namespace Vesk::Tool
{

namespace
{

// A binary document is compared as the text that it stands for.
std::string textOf(InputFile& input)
{
    if (kindOf(input.start()) != DocumentKind::FAST_INFOSET)
        return {std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
    std::ostringstream text;
    XML::XMLWriter writer(text, XML::XMLWriter::WRITE_XML_DECLARATION);
    FastInfoset::FastInfosetParser parser;
    parser.initialize(&writer);
    XML::InputSource source(input);
    parser.parse(&source);
    return text.str();
}

} // namespace

const char* CompareCommand::examples() const
{
    return "\"deflated\" is what zlib makes of each form; percentages are of the XML text as it is. \"encode\" starts "
           "from\n"
           "the text and includes parsing it; \"parse\" of the text is expat's. Times are those of the fastest of up "
           "to\n"
           "15 runs in memory.\n"
           "\n"
           "Examples:\n"
           "  veskfi compare document.xml                  is it worth it?\n"
           "  veskfi compare *.xml                         each and all together\n";
}

void CompareCommand::declareOptions(CommandOptions& options)
{
    options.addArguments("FILE", _files, "XML or Fast Infoset documents; none or - is standard input");
    _vocabularies.declareOption(options);
    _messages.declareOptions(options);
}

ExitStatus CompareCommand::run()
{
    _vocabularies.install();
    if (_files.empty())
        _files.emplace_back("-");
    ExitStatus worst = ExitStatus::SUCCESS;
    Progress progress(_messages, _files.size(), 0);
    for (const std::string& file : _files)
    {
        try
        {
            InputFile input(file);
            input.countIn(progress.octets());
            compare(input);
        }
        catch (const BrokenPipe&)
        {
            throw;
        }
        catch (const std::exception& exception)
        {
            const Failure failure = Failure::of(file, exception);
            _messages.failure(failure.what());
            worst = std::max(worst, failure.status());
        }
        progress.fileDone();
    }
    if (_documentCount > 1)
        print(_total.text("total of " + std::to_string(_documentCount) + " documents"));
    return worst;
}

void CompareCommand::compare(InputFile& input)
{
    _messages.note(input.name() + ": measuring");
    Comparison comparison;
    try
    {
        comparison = Comparison(textOf(input));
    }
    catch (const std::exception& exception)
    {
        throw Failure::of(input.name(), exception);
    }
    print(comparison.text(input.name()));
    _total += comparison;
    ++_documentCount;
}

void CompareCommand::print(const std::string& text)
{
    _messages.showProgress("");
    std::cout << text << std::flush;
    if (!std::cout)
        throwWriteError("standard output", errno);
}

} // namespace Vesk::Tool
