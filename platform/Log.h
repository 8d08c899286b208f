// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace zamber {

/// The longest line of the log in bytes, its line break included. A pipe takes so much at once or not at all, so that
/// lines of several writers to the same pipe do not mix.
inline constexpr std::size_t LONGEST_LOG_LINE = 4096;

/// Writes one line to the log, which is standard output and flushed at once. Nothing else may be written there.
/// A line that is too long is cut and ends with an ellipsis; control characters are written as pictures or numbers.
/// Never waits: a closed or full output loses the line.
void logLine(std::string_view line);

} // namespace zamber
