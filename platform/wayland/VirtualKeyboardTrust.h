// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"

namespace zamber::wayland {

/// This program may post keys where the compositor lets it make a virtual keyboard. The user has no say in it.
class VirtualKeyboardTrust final : public AccessibilityTrust {
public:
    bool isTrusted() const override { return true; }
    std::optional<QUrl> settingsAddress() const override { return std::nullopt; }
};

/// KWin gives the permission to programs whose desktop entry asks for it, at their start. There is no page of settings
/// where the user could grant it.
class NotInstalledTrust final : public AccessibilityTrust {
public:
    bool isTrusted() const override { return false; }
    std::optional<QUrl> settingsAddress() const override { return std::nullopt; }
};

} // namespace zamber::wayland
