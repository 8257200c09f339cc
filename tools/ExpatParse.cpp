// SPDX-License-Identifier: MIT
#include "ExpatParse.h"
#include <algorithm>
#include <climits>
#include <expat.h>
#include <memory>
#include <new>
#include <stdexcept>

namespace Vesk::Tool
{

namespace
{

struct FreeParser
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

void XMLCALL ignoreStart(void*, const XML_Char*, const XML_Char**)
{
}

void XMLCALL ignoreEnd(void*, const XML_Char*)
{
}

void XMLCALL ignoreText(void*, const XML_Char*, int)
{
}

} // namespace

void parseWithExpat(const std::string& xml)
{
    constexpr XML_Char SEPARATOR = '\n';
    constexpr std::size_t MAX_PIECE = INT_MAX / 2;
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser> parser(XML_ParserCreateNS(nullptr, SEPARATOR));
    if (!parser)
        throw std::bad_alloc();
    XML_SetElementHandler(parser.get(), ignoreStart, ignoreEnd);
    XML_SetCharacterDataHandler(parser.get(), ignoreText);
    for (std::size_t begin = 0; begin < xml.size() || begin == 0;)
    {
        const std::size_t size = std::min(xml.size() - begin, MAX_PIECE);
        const bool isLast = begin + size == xml.size();
        if (XML_Parse(parser.get(), xml.data() + begin, static_cast<int>(size), isLast) != XML_STATUS_OK)
            throw std::runtime_error(XML_ErrorString(XML_GetErrorCode(parser.get())));
        begin += std::max<std::size_t>(size, 1);
    }
}

} // namespace Vesk::Tool
