// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "Vesk/Exception.h"
#include <cstring>
#include <pugixml.hpp>

namespace Vesk::Benchmarks
{

namespace
{

class Pugixml final : public Contestant
{
public:
    using Contestant::Contestant;

    ExpatTally::Names names() const override { return ExpatTally::QUALIFIED; }

private:
    void process(std::size_t document) override
    {
        const std::string& xml = workload().xml(document);
        _tally = Tally();
        // White space between tags is content, as for all others.
        const auto options = pugi::parse_default | pugi::parse_ws_pcdata;
        const pugi::xml_parse_result result = _tree.load_buffer(xml.data(), xml.size(), options);
        if (!result)
            throw DataFormatException("Not well-formed for pugixml", result.description());
        walk();
    }
    Tally documentTally() override { return _tally; }

    void walk()
    {
        pugi::xml_node node = _tree.first_child();
        while (node)
        {
            visit(node);
            if (node.first_child())
            {
                node = node.first_child();
                continue;
            }
            leave(node);
            while (!node.next_sibling() && node.parent() != _tree)
            {
                node = node.parent();
                leave(node);
            }
            node = node.next_sibling();
        }
    }

    void visit(pugi::xml_node node)
    {
        switch (node.type())
        {
        case pugi::node_element:
            _tally.addElement(std::strlen(node.name()));
            for (const pugi::xml_attribute attribute : node.attributes())
                _tally.addAttribute(std::strlen(attribute.name()), std::strlen(attribute.value()));
            break;
        case pugi::node_pcdata:
        case pugi::node_cdata:
            _tally.addText(std::strlen(node.value()));
            break;
        default:
            break;
        }
    }

    void leave(pugi::xml_node node)
    {
        if (node.type() == pugi::node_element)
            _tally.addEnd();
    }

    pugi::xml_document _tree;
    Tally _tally;
};

} // namespace

ContestantPtr makePugixml(Workload& workload)
{
    return std::make_unique<Pugixml>(workload);
}

} // namespace Vesk::Benchmarks
