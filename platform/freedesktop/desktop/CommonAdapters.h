// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/freedesktop/BootstrapSymbols.h"
#include "platform/freedesktop/BuiltAppBundle.h"
#include "platform/freedesktop/CanberraSound.h"
#include "platform/freedesktop/QtAlert.h"
#include "platform/freedesktop/QtKeyMonitor.h"
#include "platform/freedesktop/QtScheduler.h"
#include "platform/freedesktop/SettingsUserDefaults.h"
#include "platform/freedesktop/session/ApplicationNames.h"
#include "platform/freedesktop/session/DesktopShortcuts.h"
#include "platform/freedesktop/session/FileLock.h"
#include "platform/freedesktop/session/PortalAppearance.h"
#include "platform/freedesktop/session/SingleInstance.h"
#include "platform/freedesktop/session/TerminationSignals.h"
#include "platform/freedesktop/session/XdgLoginItem.h"
#include "platform/freedesktop/web/ProcessWebClient.h"
#include "platform/links/ScannerLinkDetector.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zamber::freedesktop::desktop {

/// Where this user's history is kept.
std::filesystem::path historyFile();

/// The right to be the one Zamber of this user, for as long as it lives.
struct Claim {
    std::unique_ptr<session::SingleInstance> instance;
    std::unique_ptr<session::FileLock> historyLock;
};

/// Nothing when the program runs already and has been asked to show itself. The errors are sentences for people.
std::expected<std::optional<Claim>, std::string> claim();

/// The adapters that ask no windowing system, named as their ports are in Desktop. A desktop derives its own from them,
/// which so come later and go before.
struct CommonAdapters {
    explicit CommonAdapters(Claim claim);

    Claim claimed;
    session::TerminationSignals terminationSignals;
    QtScheduler scheduler;
    SettingsUserDefaults userDefaults{SettingsUserDefaults::defaultPath()};
    session::ApplicationNames applicationNames;
    QtKeyMonitor keyMonitor;
    session::PortalAppearance appearance;
    BootstrapSymbols symbols;
    CanberraSound sounds;
    session::XdgLoginItem loginItem;
    std::unique_ptr<DesktopShortcut> desktopShortcut; // null where the desktop has none to be set
    links::ScannerLinkDetector links;
    BuiltAppBundle bundle;
    QtAlert alert;
    web::ProcessWebClient web{scheduler, web::ProcessWebClient::installedProgram()};

    /// Whether a hot key has an effect at present. Quick paste's are left to other programs while it is off.
    bool isHotKeyWanted(PhysicalKey key) const;

    /// Has `changed` called when `isHotKeyWanted` may say something else.
    void observeHotKeys(std::function<void()> changed);

    /// To be called first when the desktop ends: what is still to be run may hold the last of whoever uses the
    /// adapters, or be asked for by a worker.
    void stop();
};

/// The tray's menu and a row's: a hot key works in them, and what it does is seen behind them.
void closeMenus();

} // namespace zamber::freedesktop::desktop
