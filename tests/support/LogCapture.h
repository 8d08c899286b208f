// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace zamber {

/// Catches what is written to standard output, where the program's log goes, from its construction to its end. One at
/// a time. What GoogleTest says of failed expectations goes there too; it is passed on to standard error.
class LogCapture final {
public:
    LogCapture() { testing::internal::CaptureStdout(); }
    ~LogCapture() {
        m_taken += testing::internal::GetCapturedStdout();
        if (testing::Test::HasFailure()) {
            std::fputs(m_taken.c_str(), stderr);
        }
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// What has come since the construction or the last call.
    std::string take() {
        const std::string text = testing::internal::GetCapturedStdout();
        m_taken += text;
        testing::internal::CaptureStdout();
        return text;
    }

private:
    std::string m_taken;
};

} // namespace zamber
