// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zamber::popover {

/// How long ago something happened, in one short word: "now", "42s", "7m", "3h", "12d". Both times are in seconds
/// since 1970-01-01 00:00:00 UTC. A time in the future is "now". Ends the program when the seconds between the
/// two are no 64-bit number.
QString timeAgo(double timestamp, double now);

} // namespace zamber::popover
