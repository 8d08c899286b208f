// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace zamber {

class AccessibilityTrust;
class Alert;
class AppBundle;
class Appearance;
class Application;
class BundleFiles;
class DiskImageTool;
class HotKeyCenter;
class KeyMonitor;
class KeystrokePoster;
class LinkDetector;
class LoginItem;
class Pasteboard;
class PopoverHost;
class Scheduler;
class StatusItem;
class Symbols;
class SystemSound;
class UserDefaults;
class Workspace;

/// What moving in from a disk image takes besides.
struct DiskImages {
    BundleFiles& files;
    DiskImageTool& tool;
};

/// One of each port: all that the program asks of the desktop it runs on.
struct Desktop {
    Application& application;
    Pasteboard& pasteboard;
    Workspace& workspace;
    HotKeyCenter& hotKeys;
    KeystrokePoster& keystrokes;
    KeyMonitor& keyMonitor;
    AccessibilityTrust& trust;
    StatusItem& statusItem;
    PopoverHost& popover;
    Appearance& appearance;
    Symbols& symbols;
    SystemSound& sounds;
    LoginItem& loginItem;
    LinkDetector& links;
    AppBundle& bundle;
    Alert& alert;
    UserDefaults& userDefaults;
    Scheduler& scheduler;
    std::optional<DiskImages> diskImages = std::nullopt; ///< nothing where programs do not come on disk images
};

} // namespace zamber
