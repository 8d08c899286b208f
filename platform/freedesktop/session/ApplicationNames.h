// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace zamber::freedesktop::session {

/// The names that people know programs by, from the desktop entries of the installed ones.
class ApplicationNames {
public:
    /// Entries lie in these folders and below, the most important folder first; names are wanted in these locales, the
    /// best first.
    explicit ApplicationNames(QStringList folders = defaultFolders(), QStringList locales = defaultLocales());

    static QStringList defaultFolders();
    static QStringList defaultLocales();

    /// The localised `Name` of the desktop entry that is called like the windows' class, or that names it as its
    /// `StartupWMClass`; else the class itself. Nothing for an empty class.
    std::optional<QString> ofWindowClass(const QString& windowClass);

private:
    std::optional<QString> ofEntryCalled(const QString& name) const;
    void readEntriesIfChanged();

    QStringList m_folders;
    QStringList m_locales;
    QMap<QString, QDateTime> m_changeTimes; // of the folders, when the entries were read
    QHash<QString, QString> m_namesByClass; // by StartupWMClass, then by entry, both in lower case
};

} // namespace zamber::freedesktop::session
