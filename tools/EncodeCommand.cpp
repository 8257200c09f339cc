// SPDX-License-Identifier: MIT
#include "EncodeCommand.h"
#include "CommandOptions.h"
#include "Failure.h"
#include "InputFile.h"
#include "LossFilter.h"
#include "LossWarnings.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXParser.h"

namespace Vesk::Tool
{

using FastInfoset::Converter;

namespace
{

/// Says what a document loses, or ends the conversion.
class Losses : public LossListener
{
public:
    Losses(const std::string& file, bool isLossy, Messages& messages)
        : _file(file),
          _isLossy(isLossy),
          _messages(messages),
          _warnings(file, messages)
    {
    }

    void lost(const std::string& what) override
    {
        if (!_isLossy)
            throw Failure(ExitStatus::MALFORMED,
                          _file + ": " + what + " and would be lost (--lossy converts without it)");
        _warnings.lost(what + " and is lost");
    }

    void noted(const std::string& what) override { _messages.note(_file + ": " + what); }

    void sumUp() { _warnings.sumUp(); }

private:
    const std::string& _file;
    const bool _isLossy;
    Messages& _messages;
    LossWarnings _warnings;
};

} // namespace

const char* EncodeCommand::examples() const
{
    return "Examples:\n"
           "  veskfi encode document.xml                   write document.finf\n"
           "  veskfi encode -c document.xml | wc -c        how many octets would that be?\n"
           "  veskfi encode -r data --output-dir packed    a whole folder\n"
           "  veskfi encode --typed -o out.finf in.xml     numbers and binary data as such\n";
}

void EncodeCommand::declareOwnOptions(CommandOptions& options)
{
    options.addOption("--max-indexed", "N", _maxIndexedOctets, "index text and attribute values of up to N octets");
    options.addFlag("--strip-space", _stripsSpace, "drop white space that only lays out the document");
    options.addFlag("--decl", _writesDeclaration, "start with an XML declaration");
    options.addFlag("--typed", _isTyped, "store text as numbers, UUIDs or octets where that is shorter");
    options.addFlag("--lossy", _isLossy, "leave out what Fast Infoset cannot carry, with a warning");
}

void EncodeCommand::convert(InputFile& input, std::ostream& output)
{
    Losses losses(input.name(), _isLossy, messages());
    XML::SAXParser parser;
    LossFilter filter(parser, losses);
    XML::InputSource source(input);
    const int options = (_stripsSpace ? Converter::STRIP_WHITESPACE : 0) |
                        (_writesDeclaration ? Converter::WRITE_XML_DECLARATION : 0) | (_isTyped ? Converter::TYPED : 0);
    Converter::convertToFIS(filter, source, output, _maxIndexedOctets, options);
    losses.sumUp();
}

} // namespace Vesk::Tool
