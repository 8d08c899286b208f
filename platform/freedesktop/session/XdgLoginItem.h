// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"
#include "platform/freedesktop/session/DesktopEntry.h"

#include <QStringList>

#include <optional>

namespace zamber::freedesktop::session {

/// The login item as an autostart entry (freedesktop.org, Desktop Application Autostart Specification 0.5): a file in
/// the user's autostart folder, before which those of the system's folders are of no account.
class XdgLoginItem final : public LoginItem {
public:
    /// What the session's environment variables say of where entries lie and which desktop reads them.
    struct SessionEnvironment {
        QString userFolder;         ///< $XDG_CONFIG_HOME/autostart
        QStringList systemFolders;  ///< the same of $XDG_CONFIG_DIRS, the most important one first
        QStringList currentDesktop; ///< $XDG_CURRENT_DESKTOP
    };

    static SessionEnvironment sessionEnvironment();

    /// `executable` is the absolute path of the program that is running.
    XdgLoginItem(SessionEnvironment environment, const QString& applicationId, QString executable);

    LoginItemStatus status() const override;
    std::expected<void, QString> registerItem() override;
    std::expected<void, QString> unregisterItem() override;

    QString userFile() const;

private:
    std::optional<DesktopEntry> entryInEffect() const;
    bool hasSystemEntry() const;
    bool isForThisDesktop(const DesktopEntry& entry) const;
    std::expected<void, QString> write(const QByteArray& entry) const;

    SessionEnvironment m_environment;
    QString m_fileName;
    QString m_executable;
};

} // namespace zamber::freedesktop::session
