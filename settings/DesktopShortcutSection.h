// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace zamber {
class DesktopShortcut;
}

namespace zamber::settings {

class SettingsTheme;

/// The offer to have the desktop itself open the program by ⌘⇧V: a switch that shows the desktop's record as it is when
/// the section is made, and after each change.
QWidget* desktopShortcutSection(const SettingsTheme& theme, DesktopShortcut& shortcut);

} // namespace zamber::settings
