// SPDX-License-Identifier: MIT
#ifndef VESK_EXCEPTION_H
#define VESK_EXCEPTION_H

#include "Vesk/Foundation.h"
#include <exception>
#include <memory>
#include <string>

namespace Vesk
{

/// The root of the family's exceptions.
///
/// An exception carries a message, a code that is the thrower's own (0 when it has none) and, where it was caused by
/// another exception, a copy of that one. Exceptions are values: a copy is independent of the original.
class VESK_FOUNDATION_API Exception : public std::exception
{
public:
    /// The four constructors of the family, which every derived class repeats.
    ///
    /// An argument is appended to the message: "message: argument". The nested exception is cloned.
    explicit Exception(int code = 0);
    explicit Exception(const std::string& message, int code = 0);
    Exception(const std::string& message, const std::string& argument, int code = 0);
    Exception(const std::string& message, const Exception& nested, int code = 0);

    /// A copy has a copy of the nested exception.
    Exception(const Exception& other);
    Exception& operator=(const Exception& other);
    ~Exception() override;

    /// What kind of failure this is, for people: "I/O error".
    virtual const char* name() const noexcept;
    /// The name of the class, without its namespace: "IOException".
    virtual const char* className() const noexcept;

    /// The message alone, with its argument; empty if there is none.
    const std::string& message() const noexcept { return _message; }
    /// The exception that caused this one, or null. It lives as long as this object.
    const Exception* nested() const noexcept { return _nested.get(); }
    /// The code that the thrower gave, 0 by default.
    int code() const noexcept { return _code; }

    /// "name: message", or the name alone when there is no message.
    std::string displayText() const;
    /// The same text as displayText(). It stays good as long as this object is neither assigned to nor destroyed.
    const char* what() const noexcept override;

    /// Hands over a copy of the same class.
    virtual Exception* clone() const;
    /// Throws a copy of the same class.
    [[noreturn]] virtual void rethrow() const;

private:
    std::string _message;
    std::shared_ptr<const Exception> _nested;
    int _code = 0;
    mutable std::string _what; // composed by the first call of what()
};

} // namespace Vesk

// A base class cannot stand in parentheses.
// NOLINTBEGIN(bugprone-macro-parentheses)

/// Declares the exception class NAME, derived from BASE and exported by means of API: the constructors of Exception,
/// name(), className(), clone() and rethrow(). Stands in the namespace of the new class; VESK_IMPLEMENT_EXCEPTION stands
/// in one source file, in the same namespace.
#define VESK_DECLARE_EXCEPTION(API, NAME, BASE)                                                                        \
    class API NAME : public BASE                                                                                       \
    {                                                                                                                  \
    public:                                                                                                            \
        explicit NAME(int code = 0);                                                                                   \
        explicit NAME(const ::std::string& message, int code = 0);                                                     \
        NAME(const ::std::string& message, const ::std::string& argument, int code = 0);                               \
        NAME(const ::std::string& message, const ::Vesk::Exception& nested, int code = 0);                             \
        const char* name() const noexcept override;                                                                    \
        const char* className() const noexcept override;                                                               \
        ::Vesk::Exception* clone() const override;                                                                     \
        [[noreturn]] void rethrow() const override;                                                                    \
    }

/// Defines what VESK_DECLARE_EXCEPTION declared; NAMETEXT is what name() returns.
#define VESK_IMPLEMENT_EXCEPTION(NAME, BASE, NAMETEXT)                                                                 \
    NAME::NAME(int code)                                                                                               \
        : BASE(code)                                                                                                   \
    {                                                                                                                  \
    }                                                                                                                  \
    NAME::NAME(const ::std::string& message, int code)                                                                 \
        : BASE(message, code)                                                                                          \
    {                                                                                                                  \
    }                                                                                                                  \
    NAME::NAME(const ::std::string& message, const ::std::string& argument, int code)                                  \
        : BASE(message, argument, code)                                                                                \
    {                                                                                                                  \
    }                                                                                                                  \
    NAME::NAME(const ::std::string& message, const ::Vesk::Exception& nested, int code)                                \
        : BASE(message, nested, code)                                                                                  \
    {                                                                                                                  \
    }                                                                                                                  \
    const char* NAME::name() const noexcept                                                                            \
    {                                                                                                                  \
        return NAMETEXT;                                                                                               \
    }                                                                                                                  \
    const char* NAME::className() const noexcept                                                                       \
    {                                                                                                                  \
        return #NAME;                                                                                                  \
    }                                                                                                                  \
    ::Vesk::Exception* NAME::clone() const                                                                             \
    {                                                                                                                  \
        return new NAME(*this);                                                                                        \
    }                                                                                                                  \
    void NAME::rethrow() const                                                                                         \
    {                                                                                                                  \
        throw NAME(*this);                                                                                             \
    }                                                                                                                  \
    static_assert(true, "so that the use of this macro ends in a semicolon")

// NOLINTEND(bugprone-macro-parentheses)

namespace Vesk
{

/// A mistake in the program: the caller's or our own.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, LogicException, Exception);
/// An invariant does not hold. A bug of the library: not meant to be caught.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, AssertionViolationException, LogicException);
/// A null pointer where an object is needed.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, NullPointerException, LogicException);
/// An argument that the operation does not take.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, InvalidArgumentException, LogicException);
/// An operation that the object does not support or not now.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, InvalidAccessException, LogicException);
/// An index or value out of its range.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, RangeException, LogicException);

/// A failure that a correct program meets as well: input, files, resources.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, RuntimeException, Exception);
/// A stream or file cannot be read or written.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, IOException, RuntimeException);
/// A file does not exist. The message ends in the file's name.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, FileNotFoundException, IOException);
/// Data does not have the form that its format asks for.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, DataFormatException, RuntimeException);
/// A text does not follow its grammar.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, SyntaxException, RuntimeException);
/// A container of fixed size is full.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, PoolOverflowException, RuntimeException);
/// A URI whose scheme nobody has registered.
VESK_DECLARE_EXCEPTION(VESK_FOUNDATION_API, UnknownURISchemeException, RuntimeException);

} // namespace Vesk

#endif // VESK_EXCEPTION_H
