// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QBoxLayout;
class QLabel;
class QVBoxLayout;
class QWidget;

namespace zamber::ui {
class TextLabel;
}

namespace zamber::settings {

class SettingsTheme;

/// Adds the content of a card or a row to its layout.
using SettingsContent = std::function<void(QBoxLayout&)>;

/// The building blocks of every page, so that all pages look alike. Measures are points.
struct SettingsUI {
    /// A page's title beside its symbol.
    static QWidget* header(const SettingsTheme& theme, const QString& title, const QString& icon);

    /// A titled card; without a title the card starts at the top.
    static QWidget* section(const SettingsTheme& theme, const QString& title, const SettingsContent& content);

    /// One line of a card, in which the widgets that the content adds stand side by side.
    static QWidget* row(const SettingsContent& content);

    /// A key of the keyboard; wide texts make it wider.
    static QWidget* keyCap(const SettingsTheme& theme, const QString& key);
};

// The pages call these.
QWidget* settingsHeader(const SettingsTheme& theme, const QString& title, const QString& icon);
QWidget* settingsSection(const SettingsTheme& theme, const QString& title, const SettingsContent& content);
QWidget* settingsRow(const SettingsContent& content);
QWidget* keyCapView(const SettingsTheme& theme, const QString& key);

/// The line between two rows of a card, which stops short of the card's edges.
QWidget* settingsDivider(const SettingsTheme& theme);

/// A row's label, in the body font.
ui::TextLabel* settingsLabel(const SettingsTheme& theme, const QString& text);

/// The explanation under a switch.
ui::TextLabel* settingsCaption(const SettingsTheme& theme, const QString& text);

} // namespace zamber::settings
