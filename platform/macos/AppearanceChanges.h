// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <functional>
#include <vector>

namespace zamber::macos {

/// An appearance at one moment.
struct AppearanceValues {
    bool isDark = false;
    QColor accentColor = {};
    bool reducedMotion = false;

    bool operator==(const AppearanceValues&) const = default;
};

/// Calls its handlers when an appearance has changed, not each time when the system says that it may have.
class AppearanceChanges {
public:
    explicit AppearanceChanges(const AppearanceValues& first)
        : m_last(first) {}

    void addHandler(std::function<void()> handler);

    /// Calls the handlers when these values differ from the last ones.
    void take(const AppearanceValues& values);

private:
    AppearanceValues m_last;
    std::vector<std::function<void()>> m_handlers;
};

} // namespace zamber::macos
