// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qtestsupport_core.h>

#include <chrono>

namespace zamber {

/// Runs the main loop until the condition holds, and says whether it came to hold. The bound is never waited for when
/// all is well: it is long, for a machine that has much else to do.
template <class Condition>
[[nodiscard]] bool waitUntil(Condition condition, std::chrono::milliseconds bound = std::chrono::seconds(20)) {
    return QTest::qWaitFor(condition, static_cast<int>(bound.count()));
}

/// Runs the main loop for that long, to see that nothing comes of it.
inline void letPass(std::chrono::milliseconds time) {
    static_cast<void>(waitUntil([] { return false; }, time));
}

} // namespace zamber
