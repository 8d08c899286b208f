// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/freedesktop/KeyPositions.h"

namespace zamber::wayland {

/// For a compositor that has no hot keys for programs, where there is no XWayland either.
class NoHotKeys final : public HotKeyCenter {
public:
    QString commandKeyHint() const override { return freedesktop::commandKeyHint(); }
    std::optional<HotKeyRef> registerHotKey(PhysicalKey /*key*/, HotKeyModifiers /*modifiers*/,
                                            HotKeyId /*id*/) override {
        return std::nullopt;
    }
    void setPressedHandler(PressedHandler /*handler*/) override {}
};

} // namespace zamber::wayland
