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

    /// Each handler is called after any of the three has changed, for as long as this object lives.
    virtual void addChangedHandler(std::function<void()> handler) = 0;
};

} // namespace zamber
