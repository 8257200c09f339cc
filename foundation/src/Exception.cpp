// SPDX-License-Identifier: MIT
#include "Vesk/Exception.h"
#include <mutex>

namespace Vesk
{

Exception::Exception(int code)
    : _code(code)
{
}

Exception::Exception(const std::string& message, int code)
    : _message(message),
      _code(code)
{
}

Exception::Exception(const std::string& message, const std::string& argument, int code)
    : _message(message + ": " + argument),
      _code(code)
{
}

Exception::Exception(const std::string& message, const Exception& nested, int code)
    : _message(message),
      _code(code)
{
    _nested.reset(nested.clone());
}

// Copies leave out _what: another thread that holds the same exception may be composing it, and a copy into a base
// class has another name.
Exception::Exception(const Exception& other)
    : std::exception(other),
      _message(other._message),
      _nested(other._nested),
      _code(other._code)
{
}

Exception& Exception::operator=(const Exception& other)
{
    if (this != &other)
    {
        _message = other._message;
        _nested = other._nested;
        _code = other._code;
        _what.clear();
    }
    return *this;
}

Exception::~Exception() = default;

const char* Exception::name() const noexcept
{
    return "Exception";
}

const char* Exception::className() const noexcept
{
    return "Exception";
}

std::string Exception::displayText() const
{
    return _message.empty() ? name() : name() + (": " + _message);
}

const char* Exception::what() const noexcept
{
    // One lock for all exceptions: what() is called at most once or twice before an exception is gone.
    static std::mutex mutex;
    try
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (_what.empty())
            _what = displayText();
        return _what.c_str();
    }
    catch (const std::exception&) // no memory for the text
    {
        return name();
    }
}

Exception* Exception::clone() const
{
    return new Exception(*this);
}

void Exception::rethrow() const
{
    throw Exception(*this);
}

VESK_IMPLEMENT_EXCEPTION(LogicException, Exception, "Logic error");
VESK_IMPLEMENT_EXCEPTION(AssertionViolationException, LogicException, "Assertion violation");
VESK_IMPLEMENT_EXCEPTION(NullPointerException, LogicException, "Null pointer");
VESK_IMPLEMENT_EXCEPTION(InvalidArgumentException, LogicException, "Invalid argument");
VESK_IMPLEMENT_EXCEPTION(InvalidAccessException, LogicException, "Invalid access");
VESK_IMPLEMENT_EXCEPTION(RangeException, LogicException, "Out of range");

VESK_IMPLEMENT_EXCEPTION(RuntimeException, Exception, "Runtime error");
VESK_IMPLEMENT_EXCEPTION(IOException, RuntimeException, "I/O error");
VESK_IMPLEMENT_EXCEPTION(FileNotFoundException, IOException, "File not found");
VESK_IMPLEMENT_EXCEPTION(DataFormatException, RuntimeException, "Data format error");
VESK_IMPLEMENT_EXCEPTION(SyntaxException, RuntimeException, "Syntax error");
VESK_IMPLEMENT_EXCEPTION(PoolOverflowException, RuntimeException, "Pool overflow");
VESK_IMPLEMENT_EXCEPTION(UnknownURISchemeException, RuntimeException, "Unknown URI scheme");

} // namespace Vesk
