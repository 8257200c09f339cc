// SPDX-License-Identifier: MIT
#include "CompareCommand.h"
#include "DocumentKind.h"
#include "Failure.h"
#include "InputFile.h"
#include "Quoted.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/MemoryInputStream.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/XMLWriter.h"
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
    try
    {
        parser.parse(&source);
    }
    catch (const std::exception& exception)
    {
        throw Failure::of(input.name(), parser.octetOffset(), exception);
    }
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

ExitStatus CompareCommand::examine(InputFile& input, std::string& text)
{
    Comparison comparison;
    try
    {
        comparison = Comparison(textOf(input));
    }
    catch (const std::exception& exception)
    {
        throw Failure::of(input.name(), exception);
    }
    text = comparison.text(shown(input.name(), ALL_CHARACTERS));
    _total += comparison;
    ++_documentCount;
    return ExitStatus::SUCCESS;
}

std::string CompareCommand::conclusion() const
{
    return _documentCount > 1 ? _total.text("total of " + std::to_string(_documentCount) + " documents") : "";
}

} // namespace Vesk::Tool
