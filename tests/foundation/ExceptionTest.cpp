// SPDX-License-Identifier: MIT
#include "Vesk/Exception.h"
#include "ExceptionMatcher.h"
#include <gtest/gtest.h>
#include <memory>

namespace Elsewhere
{

VESK_DECLARE_EXCEPTION(, LocalException, Vesk::IOException);
VESK_IMPLEMENT_EXCEPTION(LocalException, Vesk::IOException, "Local failure");

} // namespace Elsewhere

namespace Vesk
{

TEST(Exception, EachConstructorSetsItsParts)
{
    const Exception plain(7);
    EXPECT_EQ(plain.message(), "");
    EXPECT_EQ(plain.code(), 7);
    EXPECT_EQ(plain.nested(), nullptr);
    EXPECT_EQ(plain.displayText(), "Exception");

    const IOException withMessage("no space left", 28);
    EXPECT_EQ(withMessage.message(), "no space left");
    EXPECT_EQ(withMessage.code(), 28);
    EXPECT_EQ(withMessage.displayText(), "I/O error: no space left");

    const FileNotFoundException withArgument("File not found", "a.fis");
    EXPECT_EQ(withArgument.message(), "File not found: a.fis");
    EXPECT_EQ(withArgument.code(), 0);

    const DataFormatException withNested("bad document", withMessage, 3);
    EXPECT_EQ(withNested.message(), "bad document");
    EXPECT_EQ(withNested.code(), 3);
    ASSERT_NE(withNested.nested(), nullptr);
    EXPECT_NE(withNested.nested(), &withMessage);
    EXPECT_STREQ(withNested.nested()->className(), "IOException");
    EXPECT_EQ(withNested.nested()->message(), "no space left");
}

TEST(Exception, WhatIsTheDisplayText)
{
    const SyntaxException exception("unexpected \"]\"");
    EXPECT_STREQ(exception.what(), "Syntax error: unexpected \"]\"");
    EXPECT_EQ(exception.what(), exception.what());

    // The copy is another kind of exception and the assigned one has another message.
    // NOLINTNEXTLINE(cppcoreguidelines-slicing)
    EXPECT_STREQ(Exception(exception).what(), "Exception: unexpected \"]\"");
    SyntaxException assigned("old");
    EXPECT_STREQ(assigned.what(), "Syntax error: old");
    assigned = exception;
    EXPECT_STREQ(assigned.what(), exception.what());
}

TEST(Exception, CloneAndRethrowKeepTheClass)
{
    const PoolOverflowException original("full", IOException("inner"), 5);
    const std::unique_ptr<Exception> clone(original.clone());
    EXPECT_STREQ(clone->className(), "PoolOverflowException");
    EXPECT_EQ(clone->message(), "full");
    EXPECT_EQ(clone->code(), 5);
    ASSERT_NE(clone->nested(), nullptr);
    EXPECT_EQ(clone->nested()->message(), "inner");
    EXPECT_VESK_THROW(clone->rethrow(), PoolOverflowException, "full");
}

TEST(Exception, MacrosWorkInAnyNamespace)
{
    const Elsewhere::LocalException exception("text", "argument");
    EXPECT_STREQ(exception.what(), "Local failure: text: argument");
    EXPECT_STREQ(exception.className(), "LocalException");
    EXPECT_THROW(exception.rethrow(), RuntimeException);
    EXPECT_THROW(exception.rethrow(), std::exception);
}

template <class Derived, class Base>
void expectKind(const char* className)
{
    EXPECT_STREQ(Derived().className(), className);
    EXPECT_STRNE(Derived().name(), Base().name()) << className;
    EXPECT_THROW(Derived().rethrow(), Base) << className;
}

TEST(Exception, MistakesAndFailuresAreApart)
{
    expectKind<LogicException, Exception>("LogicException");
    expectKind<AssertionViolationException, LogicException>("AssertionViolationException");
    expectKind<NullPointerException, LogicException>("NullPointerException");
    expectKind<InvalidArgumentException, LogicException>("InvalidArgumentException");
    expectKind<InvalidAccessException, LogicException>("InvalidAccessException");
    expectKind<RangeException, LogicException>("RangeException");
    expectKind<RuntimeException, Exception>("RuntimeException");
    expectKind<IOException, RuntimeException>("IOException");
    expectKind<FileNotFoundException, IOException>("FileNotFoundException");
    expectKind<DataFormatException, RuntimeException>("DataFormatException");
    expectKind<SyntaxException, RuntimeException>("SyntaxException");
    expectKind<PoolOverflowException, RuntimeException>("PoolOverflowException");
    expectKind<UnknownURISchemeException, RuntimeException>("UnknownURISchemeException");
}

} // namespace Vesk
