// SPDX-License-Identifier: MIT
#include "Vesk/XML/SAXParser.h"
#include "../Contestants.h"
#include "../TallyHandler.h"

namespace Vesk::Benchmarks
{

namespace
{

class SAXParser final : public Contestant
{
public:
    SAXParser(Workload& items, Lifetime lifetime)
        : Contestant(items),
          _lifetime(lifetime)
    {
    }

private:
    void process(std::size_t document) override
    {
        if (_lifetime == Lifetime::REUSED)
        {
            parse(_reused, workload().xml(document));
        }
        else
        {
            XML::SAXParser parser;
            parse(parser, workload().xml(document));
        }
    }
    Tally documentTally() override { return _handler.tally(); }

    void parse(XML::SAXParser& parser, const std::string& xml)
    {
        parser.setContentHandler(&_handler);
        parser.parseMemoryNP(xml.data(), xml.size());
    }

    const Lifetime _lifetime;
    TallyHandler _handler;
    XML::SAXParser _reused;
};

} // namespace

ContestantPtr makeSAXParser(Workload& workload, Lifetime lifetime)
{
    return std::make_unique<SAXParser>(workload, lifetime);
}

} // namespace Vesk::Benchmarks
