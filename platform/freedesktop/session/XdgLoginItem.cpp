// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/XdgLoginItem.h"

#include "platform/freedesktop/session/DesktopEntry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

/// The keys by which desktops switch an entry off without removing it.
constexpr QLatin1StringView ENABLED_KEYS[] = {
    "X-GNOME-Autostart-enabled"_L1,
    "X-MATE-Autostart-enabled"_L1,
};

bool isSwitchedOff(const DesktopEntry& entry) {
    return std::ranges::any_of(ENABLED_KEYS, [&](QLatin1StringView key) { return !entry.boolean(key, true); });
}

bool isExecutable(const QString& program) {
    return QDir::isAbsolutePath(program) ? QFileInfo(program).isFile() && QFileInfo(program).isExecutable()
                                         : !QStandardPaths::findExecutable(program).isEmpty();
}

bool canStart(const DesktopEntry& entry) {
    const QString condition = entry.string(u"TryExec"_s);
    const QString program = entry.program();
    return (condition.isEmpty() || isExecutable(condition)) && !program.isEmpty() && isExecutable(program);
}

} // namespace

XdgLoginItem::SessionEnvironment XdgLoginItem::sessionEnvironment() {
    SessionEnvironment environment;
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (const QString& folder : folders) {
        (folder == folders.first() ? environment.userFolder : environment.systemFolders.emplaceBack()) =
            folder + u"/autostart"_s;
    }
    environment.currentDesktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    return environment;
}

XdgLoginItem::XdgLoginItem(SessionEnvironment environment, const QString& applicationId, QString executable)
    : m_environment(std::move(environment))
    , m_fileName(applicationId + u".desktop"_s)
    , m_executable(std::move(executable)) {}

QString XdgLoginItem::userFile() const {
    return m_environment.userFolder + u'/' + m_fileName;
}

LoginItemStatus XdgLoginItem::status() const {
    const std::optional<DesktopEntry> entry = entryInEffect();
    // A hidden entry is one that was removed where it could not be deleted.
    if (!entry || entry->boolean(u"Hidden"_s)) {
        return LoginItemStatus::NotRegistered;
    }
    if (isSwitchedOff(*entry) || !isForThisDesktop(*entry)) {
        return LoginItemStatus::RequiresApproval;
    }
    return canStart(*entry) ? LoginItemStatus::Enabled : LoginItemStatus::NotFound;
}

std::expected<void, QString> XdgLoginItem::registerItem() {
    const QString entry = u"[Desktop Entry]\n"
                          "Type=Application\n"
                          "Version=1.0\n"
                          "Name=Zamber\n"
                          "Comment=Keeps a history of what you copy\n"
                          "Exec=%1\n"
                          "TryExec=%2\n"
                          "Icon=app.zamber.Zamber\n"
                          "Terminal=false\n"
                          "StartupNotify=false\n"
                          "X-GNOME-Autostart-enabled=true\n"_s;
    // GLib looks for a program before it reads the percent signs, and does not find one with such a path.
    const QString launcher = m_executable.contains(u'%') ? u"env "_s : QString();
    return write(entry.arg(launcher + execValue(m_executable), stringValue(m_executable)).toUtf8());
}

std::expected<void, QString> XdgLoginItem::unregisterItem() {
    if (hasSystemEntry()) {
        // Without an entry of the user's, one of the system's would count again.
        return write("[Desktop Entry]\nType=Application\nName=Zamber\nHidden=true\n");
    }
    QFile file(userFile());
    if (!QFileInfo::exists(userFile()) && !QFileInfo(userFile()).isSymLink()) {
        return {};
    }
    if (!file.remove()) {
        return std::unexpected(file.errorString());
    }
    return {};
}

std::optional<DesktopEntry> XdgLoginItem::entryInEffect() const {
    for (const QString& folder : QStringList{m_environment.userFolder} + m_environment.systemFolders) {
        const QString path = folder + u'/' + m_fileName;
        if (QFileInfo(path).isFile()) {
            return DesktopEntry::readFile(path);
        }
    }
    return std::nullopt;
}

bool XdgLoginItem::hasSystemEntry() const {
    return std::ranges::any_of(m_environment.systemFolders,
                               [this](const QString& folder) { return QFile::exists(folder + u'/' + m_fileName); });
}

bool XdgLoginItem::isForThisDesktop(const DesktopEntry& entry) const {
    const auto names = [&](const QString& key) {
        const QStringList listed = entry.strings(key);
        return std::ranges::any_of(m_environment.currentDesktop,
                                   [&](const QString& desktop) { return listed.contains(desktop); });
    };
    return (!entry.contains(u"OnlyShowIn"_s) || names(u"OnlyShowIn"_s)) && !names(u"NotShowIn"_s);
}

std::expected<void, QString> XdgLoginItem::write(const QByteArray& entry) const {
    QDir().mkpath(m_environment.userFolder);
    QSaveFile file(userFile());
    if (!file.open(QIODevice::WriteOnly) || file.write(entry) != entry.size() || !file.commit()) {
        return std::unexpected(file.errorString());
    }
    return {};
}

} // namespace zamber::freedesktop::session
