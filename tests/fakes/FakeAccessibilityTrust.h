// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"

#include <functional>
#include <utility>

namespace zamber {

class FakeAccessibilityTrust final : public AccessibilityTrust {
public:
    bool isTrusted() const override {
        ++timesAsked;
        return isGranted;
    }

    std::optional<QUrl> settingsAddress() const override { return address; }

    bool isTrustedInFront() const override { return isTrusted() || isGrantedInFront; }

    void whenKnown(std::function<void()> known) override {
        if (isKnown) {
            known();
        } else {
            m_waiting = std::move(known);
        }
    }

    /// The desktop has answered.
    void answer() {
        isKnown = true;
        std::exchange(m_waiting, nullptr)();
    }

    bool hasDialog() const override { return hasOwnDialog; }
    void showDialog() const override { ++dialogsShown; }

    bool isKnown = true;
    bool isGrantedInFront = false; ///< the window in front takes key events also without the permission
    bool hasOwnDialog = false;
    mutable int dialogsShown = 0;
    bool isGranted = true;
    std::optional<QUrl> address = QUrl(QStringLiteral("settings:accessibility"));
    mutable int timesAsked = 0;

private:
    std::function<void()> m_waiting;
};

} // namespace zamber
