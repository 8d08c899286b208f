// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QString>

#include <array>
#include <optional>

namespace zamber::settings {

/// The pages of the settings window.
enum class SettingsTab { General, Clipboard, Shortcuts, About };

/// All pages in the order of the sidebar.
inline constexpr std::array ALL_SETTINGS_TABS{SettingsTab::General, SettingsTab::Clipboard, SettingsTab::Shortcuts,
                                              SettingsTab::About};

/// The page's name in the sidebar.
QString rawValue(SettingsTab tab);

/// The page of exactly that name, if there is one.
std::optional<SettingsTab> settingsTab(const QString& name);

/// The name of the page's symbol.
QString icon(SettingsTab tab);

/// The colour of its symbol in the sidebar.
QColor iconColor(SettingsTab tab, const ui::Palette& palette);

} // namespace zamber::settings
