// SPDX-License-Identifier: MIT
#include "../ArrayReaders.h"
#include "Vesk/Base64Decoder.h"
#include "Vesk/Exception.h"
#include "Vesk/MemoryInputStream.h"
#include <charconv>
#include <expat.h>
#include <string>
#include <string_view>

namespace Vesk::Benchmarks
{

namespace
{

/// Takes the text of an element piece by piece.
class TextValues
{
public:
    virtual void add(std::string_view text) = 0;
    virtual ArrayTally end() = 0;
    virtual ~TextValues() = default;
};

template <class Value>
class Numbers final : public TextValues
{
public:
    // A piece may end within a number, which is then kept for the next one.
    void add(std::string_view text) override
    {
        const std::size_t whole = text.rfind(' ') + 1;
        if (_rest.empty())
        {
            parse(text.substr(0, whole));
        }
        else if (whole > 0)
        {
            _rest += text.substr(0, whole);
            parse(_rest);
            _rest.clear();
        }
        _rest += text.substr(whole);
    }

    ArrayTally end() override
    {
        parse(_rest);
        _rest.clear();
        const ArrayTally result = _tally;
        _tally = ArrayTally();
        return result;
    }

private:
    void parse(std::string_view text)
    {
        const char* position = text.data();
        const char* const last = position + text.size();
        while (position != last)
        {
            if (*position == ' ')
            {
                ++position;
                continue;
            }
            Value value{};
            const std::from_chars_result result = std::from_chars(position, last, value);
            if (result.ec != std::errc())
                throw DataFormatException("Not a number");
            _tally.add(value);
            position = result.ptr;
        }
    }

    ArrayTally _tally;
    std::string _rest;
};

class Base64 final : public TextValues
{
public:
    void add(std::string_view text) override { _text += text; }

    ArrayTally end() override
    {
        ArrayTally tally;
        MemoryInputStream source(_text.data(), _text.size());
        Base64Decoder decoder(source);
        char block[4096];
        do
        {
            decoder.read(block, sizeof block);
            tally.addOctets(block, static_cast<std::size_t>(decoder.gcount()));
        } while (decoder);
        _text.clear();
        return tally;
    }

private:
    std::string _text;
};

std::unique_ptr<TextValues> valuesOf(TypedArray::Type type)
{
    switch (type)
    {
    case TypedArray::INT:
        return std::make_unique<Numbers<int>>();
    case TypedArray::FLOAT:
        return std::make_unique<Numbers<float>>();
    case TypedArray::DOUBLE:
        return std::make_unique<Numbers<double>>();
    default:
        return std::make_unique<Base64>();
    }
}

void XMLCALL characterData(void* userData, const XML_Char* text, int length)
{
    static_cast<TextValues*>(userData)->add(std::string_view(text, static_cast<std::size_t>(length)));
}

class TextArrayReader final : public ArrayReader
{
public:
    explicit TextArrayReader(const TypedArray& array)
        : _array(array),
          _values(valuesOf(array.type)),
          _parser(XML_ParserCreateNS(nullptr, '\x01'), XML_ParserFree)
    {
    }

    ArrayTally read() override
    {
        XML_ParserReset(_parser.get(), nullptr);
        XML_SetUserData(_parser.get(), _values.get());
        XML_SetCharacterDataHandler(_parser.get(), characterData);
        if (XML_Parse(_parser.get(), _array.xml.data(), static_cast<int>(_array.xml.size()), XML_TRUE) != XML_STATUS_OK)
            throw DataFormatException("Not well-formed");
        return _values->end();
    }

private:
    const TypedArray& _array;
    std::unique_ptr<TextValues> _values;
    std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> _parser;
};

} // namespace

std::unique_ptr<ArrayReader> makeTextArrayReader(const TypedArray& array)
{
    return std::make_unique<TextArrayReader>(array);
}

} // namespace Vesk::Benchmarks
