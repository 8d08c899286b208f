// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"

namespace zamber::wayland {

/// Where the compositor has let this program be a keyboard, it may post keys; there is nobody to grant or refuse it.
class VirtualKeyboardTrust final : public AccessibilityTrust {
public:
    bool isTrusted() const override { return true; }
    std::optional<QUrl> settingsAddress() const override { return std::nullopt; }
};

} // namespace zamber::wayland
