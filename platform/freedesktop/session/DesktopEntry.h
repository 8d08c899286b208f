// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace zamber::freedesktop::session {

/// The main group of a desktop entry (freedesktop.org, Desktop Entry Specification 1.5).
class DesktopEntry {
public:
    /// Nothing for a text without that group.
    static std::optional<DesktopEntry> parse(const QByteArray& text);

    /// Nothing where the path is no file's, the file cannot be read, or is larger than any entry is.
    static std::optional<DesktopEntry> readFile(const QString& path);

    bool contains(const QString& key) const { return m_values.contains(key); }

    /// A key of the type string, unescaped; empty where it is missing.
    QString string(const QString& key) const;

    /// A key of the type localestring in the first of the locales that it has a value for, else as it is without one.
    /// The locales are written as the standard does, the best first; see `messageLocales`.
    QString localeString(const QString& key, const QStringList& locales) const;

    /// A key of the type boolean; older files write 1. The fallback is for a missing or empty value.
    bool boolean(const QString& key, bool fallback = false) const;

    /// A key of the type strings.
    QStringList strings(const QString& key) const;

    /// The program that `Exec` starts: its first argument without quotes, or what `env` is to start. A name or a path;
    /// empty where there is none.
    QString program() const;

private:
    QMap<QString, QString> m_values; // as they are written
};

/// The user's locales for messages in all the forms that a key may have them in, the best first: "de_AT@euro", "de_AT",
/// "de@euro", "de". They come from LC_ALL, LC_MESSAGES or LANG, and from LANGUAGE unless the locale is "C".
QStringList messageLocales();

/// A path as the value of an `Exec` key: quoted where it has to be, and escaped as every value is.
QString execValue(const QString& path);

/// A text as the value of a key of the type string.
QString stringValue(const QString& text);

} // namespace zamber::freedesktop::session
