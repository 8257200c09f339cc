// SPDX-License-Identifier: MIT
#ifndef VESKFI_JSONWRITER_H
#define VESKFI_JSONWRITER_H

#include <string>

namespace Vesk::Tool
{

/// Builds a JSON text in one line. Commas come by themselves.
class JSONWriter
{
public:
    JSONWriter& beginObject();
    JSONWriter& endObject();
    JSONWriter& beginArray();
    JSONWriter& endArray();

    /// The name of the member whose value comes next.
    JSONWriter& key(const char* name);

    JSONWriter& value(const std::string& text);
    JSONWriter& value(const char* text) { return value(std::string(text)); }
    JSONWriter& value(unsigned long number);
    JSONWriter& value(long number);

    /// A member of an object.
    template <typename T>
    JSONWriter& member(const char* name, const T& memberValue)
    {
        return key(name).value(memberValue);
    }

    const std::string& text() const { return _text; }

private:
    JSONWriter& add(const std::string& token);
    JSONWriter& close(char bracket);

    std::string _text;
    bool _needsComma = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_JSONWRITER_H
