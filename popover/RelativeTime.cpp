// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RelativeTime.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace zamber::popover {

namespace {

constexpr double INTEGER_RANGE = 9223372036854775808.0; // two to the 63rd

[[noreturn]] void trap(const char* reason) {
    std::fprintf(stderr, "Double value cannot be converted to Int because %s\n", reason);
    std::abort();
}

std::int64_t wholeSeconds(double seconds) {
    if (!std::isfinite(seconds)) {
        trap("it is either infinite or NaN");
    }
    if (seconds < -INTEGER_RANGE) {
        trap("the result would be less than Int.min");
    }
    if (seconds >= INTEGER_RANGE) {
        trap("the result would be greater than Int.max");
    }
    return static_cast<std::int64_t>(seconds);
}

} // namespace

QString timeAgo(double timestamp, double now) {
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 60 * minute;
    constexpr std::int64_t day = 24 * hour;
    constexpr std::int64_t longestNow = 5;

    const std::int64_t seconds = wholeSeconds(now - timestamp);
    if (seconds < longestNow) {
        return QStringLiteral("now");
    }
    if (seconds < minute) {
        return QString::number(seconds) + u's';
    }
    if (seconds < hour) {
        return QString::number(seconds / minute) + u'm';
    }
    if (seconds < day) {
        return QString::number(seconds / hour) + u'h';
    }
    return QString::number(seconds / day) + u'd';
}

} // namespace zamber::popover
