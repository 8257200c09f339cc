// SPDX-License-Identifier: MIT
#include "EncodeCommand.h"
#include "CommandOptions.h"
#include "Failure.h"
#include "InputFile.h"
#include "LossFilter.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXParser.h"

namespace Vesk::Tool
{

using FastInfoset::Converter;

namespace
{

// A document that is all losses is not worth a message for each.
constexpr int MAX_WARNINGS = 20;

/// Says what a document loses, or ends the conversion.
class Losses : public LossListener
{
public:
    Losses(const std::string& file, bool isLossy, Messages& messages)
        : _file(file),
          _isLossy(isLossy),
          _messages(messages)
    {
    }

    void lost(const std::string& what) override
    {
        if (!_isLossy)
            throw Failure(ExitStatus::MALFORMED,
                          _file + ": " + what + " and would be lost (--lossy converts without it)");
        if (++_count <= MAX_WARNINGS)
            _messages.warning(_file + ": " + what + " and is lost");
    }

    void noted(const std::string& what) override { _messages.note(_file + ": " + what); }

    void sumUp()
    {
        if (_count > MAX_WARNINGS)
            _messages.warning(_file + ": " + std::to_string(_count - MAX_WARNINGS) + " more are lost");
    }

private:
    const std::string& _file;
    const bool _isLossy;
    Messages& _messages;
    int _count = 0;
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
