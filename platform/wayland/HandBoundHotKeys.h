// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <QString>

#include <optional>
#include <utility>

namespace zamber::wayland {

/// For a compositor that has no hot keys of its own for programs. There are others', which may reach the program in
/// some windows or in none; the user can have the compositor start the program again, and is told so.
class HandBoundHotKeys final : public HotKeyCenter {
public:
    /// The others outlive this object.
    explicit HandBoundHotKeys(HotKeyCenter& others)
        : m_others(others) {}

    QString commandKeyHint() const override {
        return m_others.commandKeyHint() +
               QStringLiteral(".\nWhere ⌘⇧V does nothing, bind a key to the command “zamber” in the compositor’s "
                              "configuration: it shows the history");
    }
    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override {
        return m_others.registerHotKey(key, modifiers, id);
    }
    void setPressedHandler(PressedHandler handler) override { m_others.setPressedHandler(std::move(handler)); }

private:
    HotKeyCenter& m_others;
};

} // namespace zamber::wayland
