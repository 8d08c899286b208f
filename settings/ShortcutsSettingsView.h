// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/PreferenceKeys.h"

#include "settings/SettingsPage.h"

#include <QStringList>

namespace zamber {
class DesktopShortcut;
class UserDefaults;
} // namespace zamber

namespace zamber::settings {

/// The page that lists the keys, with the switch for the two of quick paste.
class ShortcutsSettingsView final : public SettingsPage {
    Q_OBJECT

public:
    /// The hint says which key ⌘ is; it is empty where the keyboard says so itself. Without a desktop's shortcut none
    /// is offered.
    ShortcutsSettingsView(const SettingsTheme& theme, UserDefaults& defaults, const QString& commandKeyHint,
                          DesktopShortcut* desktopShortcut = nullptr);

    // Bound by this page and neither read nor written: the keys on it are fixed.
    const preferences::PreferenceKey<QStringView>& mainShortcut = preferences::mainShortcut;
    const preferences::PreferenceKey<QStringView>& paste2nd = preferences::paste2nd;
    const preferences::PreferenceKey<QStringView>& paste3rd = preferences::paste3rd;

private:
    QWidget* shortcutRow(const QString& label, const QStringList& keys) const;
    QWidget* tipRow(const QString& icon, const QString& text) const;
    QWidget* quickPasteRows() const;

    QString m_commandKeyHint;
};

} // namespace zamber::settings
