// SPDX-License-Identifier: MIT
#include "Workload.h"
#include "Sink.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/MemoryInputStream.h"
#include "Vesk/XML/SAXParser.h"

namespace Vesk::Benchmarks
{

Workload::Workload(const Item& item)
    : _item(item)
{
    ExpatTally expanded(ExpatTally::EXPANDED);
    ExpatTally qualified(ExpatTally::QUALIFIED);
    XML::SAXParser textParser;
    FastInfoset::FastInfosetParser parser;
    for (const std::string& xml : item.documents)
    {
        _expanded += expanded.parse(xml);
        _qualified += qualified.parse(xml);
        _xmlOctets += xml.size();

        textParser.setContentHandler(&_textEvents.emplace_back());
        textParser.parseMemoryNP(xml.data(), xml.size());
        _eventCount += _textEvents.back().eventCount();

        const std::string& fis = _fis.emplace_back(convertedToFIS(xml, DEFAULT_INDEXED_LENGTH));
        parser.setContentHandler(&_parserEvents.emplace_back());
        parser.parseMemoryNP(fis.data(), fis.size());
    }
}

std::string convertedToFIS(const std::string& xml, int maxIndexedLength)
{
    MemoryInputStream in(xml.data(), xml.size());
    Sink out;
    FastInfoset::Converter::convertToFIS(in, out.stream(), maxIndexedLength, 0);
    return out.octets();
}

} // namespace Vesk::Benchmarks
