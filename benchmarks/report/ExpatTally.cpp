// SPDX-License-Identifier: MIT
#include "ExpatTally.h"
#include "Vesk/Exception.h"
#include <cstring>

namespace Vesk::Benchmarks
{

namespace
{

constexpr XML_Char SEPARATOR = '\x01';

Tally& tallyOf(void* userData)
{
    return *static_cast<Tally*>(userData);
}

void XMLCALL startElement(void* userData, const XML_Char* name, const XML_Char** attributes)
{
    Tally& tally = tallyOf(userData);
    tally.addElement(std::strlen(name));
    for (; *attributes != nullptr; attributes += 2)
        tally.addAttribute(std::strlen(attributes[0]), std::strlen(attributes[1]));
}

void XMLCALL endElement(void* userData, const XML_Char*)
{
    tallyOf(userData).addEnd();
}

void XMLCALL characterData(void* userData, const XML_Char*, int length)
{
    tallyOf(userData).addText(static_cast<std::size_t>(length));
}

} // namespace

ExpatTally::ExpatTally(Names names)
    : _parser(names == EXPANDED ? XML_ParserCreateNS(nullptr, SEPARATOR) : XML_ParserCreate(nullptr))
{
}

const Tally& ExpatTally::parse(const std::string& xml)
{
    XML_Parser parser = _parser.get();
    XML_ParserReset(parser, nullptr);
    _tally = Tally();
    XML_SetUserData(parser, &_tally);
    XML_SetElementHandler(parser, startElement, endElement);
    XML_SetCharacterDataHandler(parser, characterData);
    if (XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), XML_TRUE) != XML_STATUS_OK)
        throw DataFormatException("Not well-formed", XML_ErrorString(XML_GetErrorCode(parser)));
    return _tally;
}

} // namespace Vesk::Benchmarks
