// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"
#include "platform/macos/AppearanceChanges.h"

namespace zamber::macos {

/// The application's effective appearance, the accent colour and the accessibility settings of the system.
class MacAppearance final : public Appearance {
public:
    /// Comes after the application object.
    MacAppearance();
    ~MacAppearance() override;
    MacAppearance(const MacAppearance&) = delete;
    MacAppearance& operator=(const MacAppearance&) = delete;

    bool isDark() const override;
    QColor accentColor() const override;
    bool reducedMotion() const override;
    void addChangedHandler(std::function<void()> handler) override;

private:
    AppearanceValues values() const { return {isDark(), accentColor(), reducedMotion()}; }

    AppearanceChanges m_changes{values()};
    void* m_observer; ///< retained
};

} // namespace zamber::macos
