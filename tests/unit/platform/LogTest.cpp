// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/Log.h"

#include <gtest/gtest.h>

#include <string>

namespace zamber {

namespace {

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;

TEST(Log, EachCallIsOneLineAtOnce) {
    CaptureStdout();
    logLine("✅ one");
    logLine("");
    EXPECT_EQ(GetCapturedStdout(), "✅ one\n\n");
}

TEST(Log, ALineBreakInANameMakesNoSecondLine) {
    CaptureStdout();
    logLine("🔵 Pasting into: two\nlines");
    EXPECT_EQ(GetCapturedStdout(), "🔵 Pasting into: two lines\n");
}

TEST(Log, ALongLineIsWhole) {
    const std::string line(200'000, 'x');
    CaptureStdout();
    logLine(line);
    EXPECT_EQ(GetCapturedStdout(), line + "\n");
}

} // namespace

} // namespace zamber
