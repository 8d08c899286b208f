// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopShortcut.h"

#include <optional>

namespace zamber {

/// A desktop with one shortcut.
class FakeDesktopShortcut final : public DesktopShortcut {
public:
    DesktopShortcutStatus status() const override { return current; }
    std::expected<void, QString> set() override { return change(DesktopShortcutStatus::Set); }
    std::expected<void, QString> remove() override { return change(DesktopShortcutStatus::NotSet); }

    DesktopShortcutStatus current = DesktopShortcutStatus::NotSet;
    std::optional<QString> failure; ///< of every change, from now on
    int changesAsked = 0;

private:
    std::expected<void, QString> change(DesktopShortcutStatus status) {
        ++changesAsked;
        if (failure) {
            return std::unexpected(*failure);
        }
        current = status;
        return {};
    }
};

} // namespace zamber
