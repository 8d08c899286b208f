// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zamber {
class AccessibilityTrust;
class AppBundle;
class DesktopShortcut;
class LoginItem;
class UserDefaults;
class Workspace;
} // namespace zamber

namespace zamber::update {
class UpdateManager;
}

namespace zamber::settings {

/// What the pages of the settings window show and change.
struct SettingsServices {
    UserDefaults& defaults;
    LoginItem& loginItem;
    const AccessibilityTrust& trust;
    Workspace& workspace;
    const AppBundle& bundle;
    update::UpdateManager& updates;
    QString commandKeyHint;                     ///< which key ⌘ is, for people; empty where the keyboard says so itself
    DesktopShortcut* desktopShortcut = nullptr; ///< null where the desktop has none to be set
};

} // namespace zamber::settings
