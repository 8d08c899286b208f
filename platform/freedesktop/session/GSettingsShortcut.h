// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopShortcut.h"
#include "platform/freedesktop/session/Programs.h"

#include <QStringList>

namespace zamber::freedesktop::session {

/// Where a desktop keeps the shortcuts that its users have made: a list that names them, and for each of them a place
/// with its name, its command and its keys.
struct GSettingsShortcutKeys {
    enum class Binding { One, List };

    QString listSchema;
    QString listKey;
    QString listed; ///< what stands for our shortcut in the list
    QString entrySchema;
    QString entryPath;
    Binding binding; ///< whether a shortcut has one combination of keys or a list of them
};

/// The shortcut in GSettings, which GNOME and Cinnamon follow while they run. It is read and written by GLib's own
/// command, `gsettings`, which is there wherever these desktops are.
class GSettingsShortcut final : public DesktopShortcut {
public:
    static GSettingsShortcutKeys gnome();
    static GSettingsShortcutKeys cinnamon();

    /// `command` is as a shell would take it.
    GSettingsShortcut(GSettingsShortcutKeys keys, QString command, Programs programs = Programs());

    DesktopShortcutStatus status() const override;
    std::expected<void, QString> set() override;
    std::expected<void, QString> remove() override;

private:
    std::expected<QStringList, QString> list() const;
    std::expected<void, QString> writeList(const QStringList& list) const;
    std::expected<void, QString> write(const QString& schema, const QString& key, const QString& value) const;
    QString entry() const;

    GSettingsShortcutKeys m_keys;
    QString m_command;
    Programs m_programs;
};

} // namespace zamber::freedesktop::session
