// SPDX-License-Identifier: MIT
#include "Vesk/Bugcheck.h"
#include "ExceptionMatcher.h"
#include <gtest/gtest.h>

namespace Vesk
{

TEST(Bugcheck, MessageHoldsConditionFileAndLine)
{
    EXPECT_VESK_THROW(Bugcheck::assertion("index < size", "src/Table", 42), AssertionViolationException,
                      "index < size [in src/Table, line 42]");
    EXPECT_VESK_THROW(Bugcheck::nullPointer("_data", "src/Table", 43), NullPointerException,
                      "_data [in src/Table, line 43]");
}

TEST(Bugcheck, UnexpectedReportsAndReturns)
{
    testing::internal::CaptureStderr();
    Bugcheck::unexpected(IOException("disk full"), "src/Writer", 9);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Unexpected exception: I/O error: disk full [in src/Writer, line 9]\n");
}

} // namespace Vesk
