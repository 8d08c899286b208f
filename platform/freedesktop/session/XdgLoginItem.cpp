// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/XdgLoginItem.h"

#include "platform/freedesktop/session/AutostartEntry.h"

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

/// The keys by which desktops switch an entry off that they leave in its place.
constexpr QLatin1StringView ENABLED_KEYS[] = {
    "X-GNOME-Autostart-enabled"_L1,
    "X-MATE-Autostart-enabled"_L1,
};

bool isSwitchedOff(const QMap<QString, QString>& keys) {
    return std::ranges::any_of(ENABLED_KEYS, [&](QLatin1StringView key) {
        const QString value = keys.value(key);
        return !value.isEmpty() && !isTrue(value);
    });
}

bool canStart(const QMap<QString, QString>& keys) {
    const QString program = textOfStringValue(keys.value(u"TryExec"_s));
    if (program.isEmpty()) {
        return !keys.value(u"Exec"_s).isEmpty();
    }
    return QDir::isAbsolutePath(program) ? QFileInfo(program).isExecutable()
                                         : !QStandardPaths::findExecutable(program).isEmpty();
}

} // namespace

XdgLoginItem::Surroundings XdgLoginItem::defaultSurroundings() {
    Surroundings surroundings;
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (const QString& folder : folders) {
        (folder == folders.first() ? surroundings.userFolder : surroundings.systemFolders.emplaceBack()) =
            folder + u"/autostart"_s;
    }
    surroundings.currentDesktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    return surroundings;
}

XdgLoginItem::XdgLoginItem(Surroundings surroundings, const QString& applicationId, QString executable)
    : m_surroundings(std::move(surroundings))
    , m_fileName(applicationId + u".desktop"_s)
    , m_executable(std::move(executable)) {}

QString XdgLoginItem::userFile() const {
    return m_surroundings.userFolder + u'/' + m_fileName;
}

LoginItemStatus XdgLoginItem::status() const {
    const std::optional<Keys> keys = keysInEffect();
    // A hidden entry is one that was removed where it could not be deleted.
    if (!keys || isTrue(keys->value(u"Hidden"_s))) {
        return LoginItemStatus::NotRegistered;
    }
    if (isSwitchedOff(*keys) || !isForThisDesktop(*keys)) {
        return LoginItemStatus::RequiresApproval;
    }
    return canStart(*keys) ? LoginItemStatus::Enabled : LoginItemStatus::NotFound;
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
    return write(entry.arg(launcher + execValueOf(m_executable), stringValueOf(m_executable)).toUtf8());
}

std::expected<void, QString> XdgLoginItem::unregisterItem() {
    if (hasSystemEntry()) {
        // Without one of the user's the system's would count again.
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

std::optional<XdgLoginItem::Keys> XdgLoginItem::keysInEffect() const {
    for (const QString& folder : QStringList{m_surroundings.userFolder} + m_surroundings.systemFolders) {
        QFile file(folder + u'/' + m_fileName);
        if (QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly)) {
            return keysOfDesktopEntry(file.readAll());
        }
    }
    return std::nullopt;
}

bool XdgLoginItem::hasSystemEntry() const {
    return std::ranges::any_of(m_surroundings.systemFolders,
                               [this](const QString& folder) { return QFile::exists(folder + u'/' + m_fileName); });
}

bool XdgLoginItem::isForThisDesktop(const Keys& keys) const {
    const auto names = [&](const QString& key) {
        const QStringList listed = keys.value(key).split(u';', Qt::SkipEmptyParts);
        return std::ranges::any_of(m_surroundings.currentDesktop,
                                   [&](const QString& desktop) { return listed.contains(desktop); });
    };
    return (!keys.contains(u"OnlyShowIn"_s) || names(u"OnlyShowIn"_s)) && !names(u"NotShowIn"_s);
}

std::expected<void, QString> XdgLoginItem::write(const QByteArray& entry) const {
    QDir().mkpath(m_surroundings.userFolder);
    QSaveFile file(userFile());
    if (!file.open(QIODevice::WriteOnly) || file.write(entry) != entry.size() || !file.commit()) {
        return std::unexpected(file.errorString());
    }
    return {};
}

} // namespace zamber::freedesktop::session
