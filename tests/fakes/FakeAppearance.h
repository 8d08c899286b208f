// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <utility>
#include <vector>

namespace zamber {

/// A desktop whose look a test chooses. Nothing moves unless the test wants it to.
class FakeAppearance final : public Appearance {
public:
    bool isDark() const override { return m_isDark; }
    QColor accentColor() const override { return m_accent; }
    bool reducedMotion() const override { return m_reducedMotion; }
    void addChangedHandler(std::function<void()> handler) override { m_changed.push_back(std::move(handler)); }

    void setDark(bool isDark) { change(m_isDark, isDark); }
    void setAccentColor(const QColor& accent) { change(m_accent, accent); }
    void setReducedMotion(bool reduced) { change(m_reducedMotion, reduced); }

private:
    template <class Value>
    void change(Value& current, const Value& next) {
        if (current != next) {
            current = next;
            for (const auto& changed : m_changed) {
                changed();
            }
        }
    }

    bool m_isDark = false;
    QColor m_accent{0x1F, 0x78, 0xF0};
    bool m_reducedMotion = true;
    std::vector<std::function<void()>> m_changed;
};

} // namespace zamber
