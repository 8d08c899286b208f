// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace zamber::macos {

/// How long the system has been running, by which its timers go.
std::chrono::duration<double> uptime();

/// Lets the main loop run until the condition holds; false when it gives up.
bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience = std::chrono::seconds(5));

/// Lets it run for that time.
void letPass(std::chrono::milliseconds time = std::chrono::milliseconds(100));

} // namespace zamber::macos
