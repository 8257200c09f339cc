// SPDX-License-Identifier: MIT
#include "ContentModel.h"
#include <vector>

namespace Vesk::XML
{
namespace
{
const char* quantifier(const XML_Content& model)
{
    switch (model.quant)
    {
    case XML_CQUANT_OPT:
        return "?";
    case XML_CQUANT_REP:
        return "*";
    case XML_CQUANT_PLUS:
        return "+";
    default:
        return "";
    }
}

const char* opening(const XML_Content& model)
{
    switch (model.type)
    {
    case XML_CTYPE_EMPTY:
        return "EMPTY";
    case XML_CTYPE_ANY:
        return "ANY";
    case XML_CTYPE_MIXED:
        return model.numchildren > 0 ? "(#PCDATA|" : "(#PCDATA";
    case XML_CTYPE_NAME:
        return model.name;
    default:
        return "(";
    }
}

const char* closing(const XML_Content& model)
{
    return model.type == XML_CTYPE_MIXED || model.type == XML_CTYPE_CHOICE || model.type == XML_CTYPE_SEQ ? ")" : "";
}
} // namespace

XMLString contentModelText(const XML_Content& model)
{
    struct Level
    {
        const XML_Content* model;
        unsigned int nextChild;
    };

    // The document decides how deep groups are nested: no recursion.
    XMLString text = opening(model);
    std::vector<Level> open = {{&model, 0}};
    while (!open.empty())
    {
        Level& level = open.back();
        const XML_Content& group = *level.model;
        if (level.nextChild < group.numchildren)
        {
            if (level.nextChild > 0)
                text += group.type == XML_CTYPE_SEQ ? ',' : '|';
            const XML_Content& child = group.children[level.nextChild++];
            text += opening(child);
            open.push_back({&child, 0});
        }
        else
        {
            text.append(closing(group)).append(quantifier(group));
            open.pop_back();
        }
    }
    return text;
}
} // namespace Vesk::XML
