// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"

namespace zamber {

class FakeAccessibilityTrust final : public AccessibilityTrust {
public:
    bool isTrusted() const override {
        ++timesAsked;
        return isGranted;
    }

    std::optional<QUrl> settingsAddress() const override { return address; }

    bool isGranted = true;
    std::optional<QUrl> address = QUrl(QStringLiteral("settings:accessibility"));
    mutable int timesAsked = 0;
};

} // namespace zamber
