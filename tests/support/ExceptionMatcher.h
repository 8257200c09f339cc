// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_EXCEPTIONMATCHER_H
#define VESK_TESTS_EXCEPTIONMATCHER_H

#include "Vesk/Exception.h"
#include <gtest/gtest.h>

/// Expects that the statement throws exactly this type of Vesk exception with exactly this message.
#define EXPECT_VESK_THROW(statement, type, text)                                                                       \
    try                                                                                                                \
    {                                                                                                                  \
        statement;                                                                                                     \
        ADD_FAILURE() << #statement " throws nothing, expected " #type ": " << (text);                                 \
    }                                                                                                                  \
    catch (const ::Vesk::Exception& exception)                                                                         \
    {                                                                                                                  \
        EXPECT_TRUE(typeid(exception) == typeid(type)) << exception.displayText();                                     \
        EXPECT_EQ(exception.message(), std::string(text));                                                             \
    }

#endif // VESK_TESTS_EXCEPTIONMATCHER_H
