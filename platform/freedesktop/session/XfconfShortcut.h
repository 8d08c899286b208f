// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopShortcut.h"
#include "platform/freedesktop/session/Programs.h"

namespace zamber::freedesktop::session {

/// The shortcut as XFCE keeps it: a property named after the keys, whose value is the command. It is read and written
/// by XFCE's own command, `xfconf-query`; the desktop follows while it runs.
class XfconfShortcut final : public DesktopShortcut {
public:
    /// `command` is as a shell would take it.
    explicit XfconfShortcut(QString command, Programs programs = Programs());

    DesktopShortcutStatus status() const override;
    std::expected<void, QString> set() override;
    std::expected<void, QString> remove() override;

private:
    QString valueInEffect() const;
    std::expected<void, QString> query(const QStringList& arguments) const;

    QString m_command;
    Programs m_programs;
};

} // namespace zamber::freedesktop::session
