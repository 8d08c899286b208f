// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <optional>

namespace zamber::freedesktop::session {

/// The keys of a desktop entry's main group, as they are written (freedesktop.org, Desktop Entry Specification 1.5).
/// Nothing for a text without that group.
std::optional<QMap<QString, QString>> keysOfDesktopEntry(const QByteArray& text);

/// The value of a true or false key that says true; older files write 1.
bool isTrue(const QString& value);

/// A path as the value of an `Exec` key: quoted where it has to be, and escaped as every value is.
QString execValueOf(const QString& path);

/// A text as the value of a string key.
QString stringValueOf(const QString& text);

/// What a value of a string key stands for.
QString textOfStringValue(const QString& value);

} // namespace zamber::freedesktop::session
