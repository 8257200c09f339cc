// SPDX-License-Identifier: MIT
#include "DecodeCommand.h"
#include "CommandOptions.h"
#include "Failure.h"
#include "InputFile.h"
#include "LossWarnings.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/StructureObserver.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/XMLWriter.h"

namespace Vesk::Tool
{

using XML::XMLWriter;

namespace
{

/// Tells of what the parser reads but does not report to the writer.
class Losses : public FastInfoset::StructureObserver
{
public:
    Losses(const std::string& file, const FastInfoset::FastInfosetParser& parser, Messages& messages)
        : _file(file),
          _parser(parser),
          _messages(messages),
          _warnings(file, messages)
    {
    }

    void startStructure(Structure structure) override
    {
        if (structure == Structure::ENTITY_REFERENCE)
            _warnings.lost(place() + "a reference to an entity, which was not expanded, is left out");
        else if (structure == Structure::ADDITIONAL_DATA)
            _messages.note(_file + ": " + place() + "additional data is left out");
    }
    void endStructure(Structure) override {}
    void part(const Part&) override {}

    void sumUp() { _warnings.sumUp(); }

private:
    std::string place() const { return "octet " + std::to_string(_parser.octetOffset()) + ": "; }

    const std::string& _file;
    const FastInfoset::FastInfosetParser& _parser;
    Messages& _messages;
    LossWarnings _warnings;
};

} // namespace

const char* DecodeCommand::examples() const
{
    return "Examples:\n"
           "  veskfi decode document.finf                  write document.xml\n"
           "  veskfi decode -c --pretty document.finf      look at it\n"
           "  veskfi decode -r packed --output-dir data    a whole folder\n"
           "  veskfi decode --vocab urn:x=names.xml a.finf supply the vocabulary that it names\n";
}

void DecodeCommand::declareOwnOptions(CommandOptions& options)
{
    options.addFlag("--pretty", _isPretty, "indent elements that hold no text");
    options.addFlag("--no-decl", _leavesOutDeclaration, "leave out the XML declaration");
    _vocabularies.declareOption(options);
}

void DecodeCommand::prepare()
{
    _vocabularies.install();
}

void DecodeCommand::convert(InputFile& input, std::ostream& output)
{
    XMLWriter writer(output, (_leavesOutDeclaration ? 0 : XMLWriter::WRITE_XML_DECLARATION) |
                                 (_isPretty ? XMLWriter::PRETTY_PRINT : 0));
    FastInfoset::FastInfosetParser parser;
    parser.initialize(&writer);
    Losses losses(input.name(), parser, messages());
    parser.setStructureObserver(&losses);
    XML::InputSource source(input);
    try
    {
        parser.parse(&source);
    }
    catch (const std::exception& exception)
    {
        throw Failure::of(input.name(), parser.octetOffset(), exception);
    }
    losses.sumUp();
    // As far as they can be seen without waiting for them.
    if (input.knownOctetCount() > parser.octetOffset())
        messages().warning(input.name() + ": octet " + std::to_string(parser.octetOffset()) +
                           ": what stands behind the document is left out");
}

} // namespace Vesk::Tool
