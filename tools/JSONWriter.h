// SPDX-License-Identifier: MIT
#ifndef VESKFI_JSONWRITER_H
#define VESKFI_JSONWRITER_H

#include <ostream>
#include <string>
#include <string_view>

namespace Vesk::Tool
{

/// Writes a JSON text in one line. Commas come by themselves.
class JSONWriter
{
public:
    /// The output is borrowed.
    explicit JSONWriter(std::ostream& output);

    JSONWriter& beginObject() { return open('{'); }
    JSONWriter& endObject() { return close('}'); }
    JSONWriter& beginArray() { return open('['); }
    JSONWriter& endArray() { return close(']'); }

    /// The name of the member whose value comes next.
    JSONWriter& key(const char* name);

    JSONWriter& value(const std::string& text);
    JSONWriter& value(unsigned long number);
    JSONWriter& value(long number);

    /// Octets as a string of hexadecimal digits.
    JSONWriter& hexadecimal(std::string_view octets);

    /// A member of an object.
    template <typename T>
    JSONWriter& member(const char* name, const T& memberValue)
    {
        return key(name).value(memberValue);
    }

private:
    void separate();
    JSONWriter& open(char bracket);
    JSONWriter& close(char bracket);

    std::ostream& _output;
    bool _needsComma = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_JSONWRITER_H
