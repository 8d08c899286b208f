// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <functional>

namespace zamber {

/// How the user wants programs to look.
class Appearance {
public:
    virtual ~Appearance() = default;

    virtual bool isDark() const = 0;
    virtual QColor accentColor() const = 0;
    virtual bool reducedMotion() const = 0;

    /// Called after any of the three has changed.
    virtual void setChangedHandler(std::function<void()> handler) = 0;
};

} // namespace zamber
