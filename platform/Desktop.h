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
class DesktopShortcut;
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
class WebClient;
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
    WebClient& web;
    DesktopShortcut* desktopShortcut = nullptr;          ///< null where the desktop has none to be set
    std::optional<DiskImages> diskImages = std::nullopt; ///< nothing where programs do not come on disk images
};

/// The ports of a desktop whose adapters are members of one struct, each of them named as its port is in Desktop.
/// What only some desktops have is left to them: their own shortcuts, and moving in from a disk image.
template <typename Adapters>
Desktop portsOf(Adapters& adapters) {
    return {.application = adapters.application,
            .pasteboard = adapters.pasteboard,
            .workspace = adapters.workspace,
            .hotKeys = adapters.hotKeys,
            .keystrokes = adapters.keystrokes,
            .keyMonitor = adapters.keyMonitor,
            .trust = adapters.trust,
            .statusItem = adapters.statusItem,
            .popover = adapters.popover,
            .appearance = adapters.appearance,
            .symbols = adapters.symbols,
            .sounds = adapters.sounds,
            .loginItem = adapters.loginItem,
            .links = adapters.links,
            .bundle = adapters.bundle,
            .alert = adapters.alert,
            .userDefaults = adapters.userDefaults,
            .scheduler = adapters.scheduler,
            .web = adapters.web};
}

} // namespace zamber
