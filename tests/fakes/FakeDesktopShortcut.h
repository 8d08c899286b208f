// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopShortcut.h"
#include "tests/fakes/FakeRecord.h"

namespace zamber {

/// A desktop with one shortcut.
class FakeDesktopShortcut final
    : public FakeRecord<DesktopShortcut, DesktopShortcutStatus, DesktopShortcutStatus::NotSet> {
public:
    std::expected<void, QString> set() override { return change(DesktopShortcutStatus::Set); }
    std::expected<void, QString> remove() override { return change(DesktopShortcutStatus::NotSet); }
};

} // namespace zamber
