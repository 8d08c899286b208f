// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/ApplicationNames.h"

#include "platform/freedesktop/session/DesktopEntry.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

const QString SUFFIX = u".desktop"_s;

QMap<QString, QDateTime> changeTimes(const QStringList& folders) {
    QMap<QString, QDateTime> times;
    for (const QString& folder : folders) {
        times.insert(folder, QFileInfo(folder).lastModified());
    }
    return times;
}

/// The entry files below a folder in a fixed order, each with its name in the menu system: folders joined by hyphens.
QMap<QString, QString> filesByEntryName(const QString& folder) {
    QMap<QString, QString> files;
    QDirIterator iterator(folder, {u"*"_s + SUFFIX}, QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        const QString path = iterator.next();
        QString name = path.sliced(folder.size() + 1);
        name.chop(SUFFIX.size());
        files.insert(name.replace(u'/', u'-'), path);
    }
    return files;
}

} // namespace

QStringList ApplicationNames::defaultFolders() {
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

QStringList ApplicationNames::defaultLocales() {
    return messageLocales();
}

ApplicationNames::ApplicationNames(QStringList folders, QStringList locales)
    : m_folders(std::move(folders))
    , m_locales(std::move(locales)) {}

std::optional<QString> ApplicationNames::ofWindowClass(const QString& windowClass) {
    if (windowClass.isEmpty()) {
        return std::nullopt;
    }
    for (const QString& entry : {windowClass, windowClass.toLower()}) {
        if (const std::optional<QString> name = ofEntryCalled(entry)) {
            return name;
        }
    }
    readEntriesIfChanged();
    return m_namesByClass.value(windowClass.toLower(), windowClass);
}

std::optional<QString> ApplicationNames::ofEntryCalled(const QString& name) const {
    // A program may give its windows any class; it must not become the path of a file in another folder.
    if (name.contains(u'/') || name.contains(QChar::Null)) {
        return std::nullopt;
    }
    for (const QString& folder : m_folders) {
        if (const std::optional<DesktopEntry> entry = DesktopEntry::readFile(folder + u'/' + name + SUFFIX)) {
            QString found = entry->localeString(u"Name"_s, m_locales);
            if (!found.isEmpty()) {
                return found;
            }
        }
    }
    return std::nullopt;
}

void ApplicationNames::readEntriesIfChanged() {
    const QMap<QString, QDateTime> times = changeTimes(m_folders);
    if (times == m_changeTimes) {
        return;
    }
    m_changeTimes = times;
    m_namesByClass.clear();
    QHash<QString, QString> namesByEntry;
    for (const QString& folder : m_folders) {
        const QMap<QString, QString> files = filesByEntryName(folder);
        for (auto file = files.begin(); file != files.end(); ++file) {
            const QString entryName = file.key().toLower();
            const std::optional<DesktopEntry> entry = DesktopEntry::readFile(file.value());
            const QString name = entry ? entry->localeString(u"Name"_s, m_locales) : QString();
            // Of several entries of one name, the first is the most important one.
            if (name.isEmpty() || namesByEntry.contains(entryName)) {
                continue;
            }
            namesByEntry.insert(entryName, name);
            const QString windowClass = entry->string(u"StartupWMClass"_s).toLower();
            if (!windowClass.isEmpty() && !m_namesByClass.contains(windowClass)) {
                m_namesByClass.insert(windowClass, name);
            }
        }
    }
    for (auto entry = namesByEntry.begin(); entry != namesByEntry.end(); ++entry) {
        if (!m_namesByClass.contains(entry.key())) {
            m_namesByClass.insert(entry.key(), entry.value());
        }
    }
}

} // namespace zamber::freedesktop::session
