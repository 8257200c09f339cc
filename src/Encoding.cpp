// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Encoding.h"
#include "Vesk/Exception.h"
#include "Vesk/XML/ContentHandler.h"
#include <limits>

namespace Vesk::FastInfoset
{

Encoding::~Encoding() = default;

void Encoding::handle(XML::ContentHandler* handler) const
{
    characters(handler, Encoding::content());
}

const std::string& Encoding::content() const
{
    materializeContent();
    return _content;
}

std::string& Encoding::content()
{
    materializeContent();
    return _content;
}

void Encoding::text(std::string& text) const
{
    text = content();
}

void Encoding::requireContent()
{
    _contentRequired = true;
}

void Encoding::materializeContent() const
{
    if (_contentRequired)
    {
        text(_content);
        _contentRequired = false;
    }
}

void Encoding::characters(XML::ContentHandler* handler, const std::string& text)
{
    if (!handler)
        return;
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw RangeException("Text is too long for a content handler");
    handler->characters(text.data(), 0, static_cast<int>(text.size()));
}

} // namespace Vesk::FastInfoset
