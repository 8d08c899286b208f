// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"

namespace zamber::macos {

/// The Accessibility permission, which the user grants in the privacy settings.
class MacAccessibilityTrust final : public AccessibilityTrust {
public:
    bool isTrusted() const override;
    std::optional<QUrl> settingsAddress() const override;
};

} // namespace zamber::macos
