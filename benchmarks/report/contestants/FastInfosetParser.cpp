// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "../Contestants.h"
#include "../TallyHandler.h"
#include "Vesk/MemoryInputStream.h"
#include "Vesk/XML/InputSource.h"

namespace Vesk::Benchmarks
{

namespace
{

class FastInfosetParser final : public Contestant
{
public:
    FastInfosetParser(Workload& items, Tables tables, Input input, Lifetime lifetime)
        : Contestant(items),
          _tables(tables),
          _input(input),
          _lifetime(lifetime),
          _reused(tables)
    {
    }

private:
    void process(std::size_t document) override
    {
        if (_lifetime == Lifetime::REUSED)
        {
            parse(_reused, workload().fis(document));
        }
        else
        {
            FastInfoset::FastInfosetParser parser(_tables);
            parse(parser, workload().fis(document));
        }
    }
    Tally documentTally() override { return _handler.tally(); }

    void parse(FastInfoset::FastInfosetParser& parser, const std::string& fis)
    {
        parser.setContentHandler(&_handler);
        if (_input == Input::MEMORY)
        {
            parser.parseMemoryNP(fis.data(), fis.size());
        }
        else
        {
            MemoryInputStream stream(fis.data(), fis.size());
            XML::InputSource source(stream);
            parser.parse(&source);
        }
    }

    const Tables _tables;
    const Input _input;
    const Lifetime _lifetime;
    TallyHandler _handler;
    FastInfoset::FastInfosetParser _reused;
};

} // namespace

ContestantPtr makeFastInfosetParser(Workload& workload, Tables tables, Input input, Lifetime lifetime)
{
    return std::make_unique<FastInfosetParser>(workload, tables, input, lifetime);
}

} // namespace Vesk::Benchmarks
