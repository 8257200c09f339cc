// SPDX-License-Identifier: MIT
#include "JSONWriter.h"
#include "Quoted.h"

namespace Vesk::Tool
{

JSONWriter& JSONWriter::beginObject()
{
    add("{");
    _needsComma = false;
    return *this;
}

JSONWriter& JSONWriter::endObject()
{
    return close('}');
}

JSONWriter& JSONWriter::beginArray()
{
    add("[");
    _needsComma = false;
    return *this;
}

JSONWriter& JSONWriter::endArray()
{
    return close(']');
}

JSONWriter& JSONWriter::key(const char* name)
{
    add(quotedJSON(name) + ":");
    _needsComma = false;
    return *this;
}

JSONWriter& JSONWriter::value(const std::string& text)
{
    return add(quotedJSON(text));
}

JSONWriter& JSONWriter::value(unsigned long number)
{
    return add(std::to_string(number));
}

JSONWriter& JSONWriter::value(long number)
{
    return add(std::to_string(number));
}

JSONWriter& JSONWriter::add(const std::string& token)
{
    if (_needsComma)
        _text += ',';
    _text += token;
    _needsComma = true;
    return *this;
}

JSONWriter& JSONWriter::close(char bracket)
{
    _text += bracket;
    _needsComma = true;
    return *this;
}

} // namespace Vesk::Tool
