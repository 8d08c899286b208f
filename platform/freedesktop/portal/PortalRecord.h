// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

namespace zamber::freedesktop::portal {

/// The list without these texts.
QStringList without(QStringList list, const QStringList& removed);

/// What has become of the questions that portals have put to the user: which shortcuts were accepted or refused, and
/// the token by which the consent to type keys is remembered. It holds for this machine alone and changes with every
/// paste, so it is kept with the user's state and not with the preferences; others cannot read it.
class PortalRecord {
public:
    explicit PortalRecord(const QString& path = defaultPath());

    /// Zamber/portals.conf in the user's folder for state.
    static QString defaultPath();

    /// Empty where the user has given no consent.
    QString restoreToken() const;
    void setRestoreToken(const QString& token);

    QStringList acceptedShortcuts() const;
    QStringList refusedShortcuts() const;
    void accept(const QStringList& shortcuts);
    void refuse(const QStringList& shortcuts);
    void forgetRefusal(const QStringList& shortcuts);

private:
    void write(const QString& key, const QVariant& value);

    QSettings m_settings;
};

} // namespace zamber::freedesktop::portal
