// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

#include <cstdlib>

namespace {

/// Before main, so that it holds wherever a test program is started, also where CTest only asks for its cases.
[[maybe_unused]] const int isOffscreen =
    setenv("QT_QPA_PLATFORM", "offscreen", 1); // NOLINT(concurrency-mt-unsafe): no other thread yet

} // namespace
