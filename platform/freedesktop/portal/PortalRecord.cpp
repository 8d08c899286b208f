// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/PortalRecord.h"

#include "platform/freedesktop/session/UserFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;

namespace {

const auto TOKEN = u"restoreToken"_s;
const auto ACCEPTED = u"acceptedShortcuts"_s;
const auto REFUSED = u"refusedShortcuts"_s;

} // namespace

QStringList without(QStringList list, const QStringList& removed) {
    list.removeIf([&removed](const QString& text) { return removed.contains(text); });
    return list;
}

PortalRecord::PortalRecord(const QString& path)
    : m_settings(path, QSettings::IniFormat) {
    // QSettings makes its file readable for everybody where it finds none.
    const QString folder = QFileInfo(path).absolutePath();
    if (!QFileInfo::exists(folder) && QDir().mkpath(folder)) {
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

QString PortalRecord::defaultPath() {
    return QString::fromStdString((session::userStateFolder() / "Zamber" / "portals.conf").string());
}

QString PortalRecord::restoreToken() const {
    return m_settings.value(TOKEN).toString();
}

void PortalRecord::setRestoreToken(const QString& token) {
    write(TOKEN, token);
}

QStringList PortalRecord::acceptedShortcuts() const {
    return m_settings.value(ACCEPTED).toStringList();
}

QStringList PortalRecord::refusedShortcuts() const {
    return m_settings.value(REFUSED).toStringList();
}

void PortalRecord::accept(const QStringList& shortcuts) {
    write(ACCEPTED, without(acceptedShortcuts(), shortcuts) + shortcuts);
    forgetRefusal(shortcuts);
}

void PortalRecord::refuse(const QStringList& shortcuts) {
    write(REFUSED, without(refusedShortcuts(), shortcuts) + shortcuts);
    write(ACCEPTED, without(acceptedShortcuts(), shortcuts));
}

void PortalRecord::forgetRefusal(const QStringList& shortcuts) {
    write(REFUSED, without(refusedShortcuts(), shortcuts));
}

void PortalRecord::write(const QString& key, const QVariant& value) {
    if (m_settings.value(key) == value) {
        return;
    }
    m_settings.setValue(key, value);
    m_settings.sync();
    QFile::setPermissions(m_settings.fileName(), QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace zamber::freedesktop::portal
