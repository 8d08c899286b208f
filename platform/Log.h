// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zamber {

/// Writes one line to the log, which is standard output and flushed at once. Nothing else may be written there.
/// A closed or full output is ignored.
void logLine(std::string_view line);

} // namespace zamber
