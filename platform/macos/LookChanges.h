// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <functional>
#include <vector>

namespace zamber::macos {

/// What an appearance says of how programs are to look.
struct Look {
    bool isDark = false;
    QColor accentColor = {};
    bool reducedMotion = false;

    bool operator==(const Look&) const = default;
};

/// Tells of changes alone, however often the system speaks of one.
class LookChanges {
public:
    explicit LookChanges(const Look& first)
        : m_last(first) {}

    void addHandler(std::function<void()> handler);

    /// Calls the handlers when the look is another one than the last.
    void take(const Look& look);

private:
    Look m_last;
    std::vector<std::function<void()>> m_handlers;
};

} // namespace zamber::macos
