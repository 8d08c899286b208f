// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsPage.h"
#include "preferences/PreferenceKeys.h"

#include <QStringList>

namespace zamber {

class UserDefaults;

/// Which keys do what, and whether the two for quick paste do anything.
class ShortcutsSettingsView final : public SettingsPage {
    Q_OBJECT

public:
    /// The hint says which key ⌘ is; it is empty where the keyboard says so itself.
    ShortcutsSettingsView(const SettingsLook& look, UserDefaults& defaults, const QString& commandKeyHint);

    // Bound by this page and neither read nor written: the keys on it are fixed.
    const PreferenceKey<QStringView>& mainShortcut = keys::mainShortcut;
    const PreferenceKey<QStringView>& paste2nd = keys::paste2nd;
    const PreferenceKey<QStringView>& paste3rd = keys::paste3rd;

private:
    QWidget* shortcutRow(const QString& label, const QStringList& keys) const;
    QWidget* tipRow(const QString& icon, const QString& text) const;
    QWidget* quickPasteRows() const;

    QString m_commandKeyHint;
};

} // namespace zamber
