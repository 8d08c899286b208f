// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "app/PermissionWindow.h"
#include "clipboard/ClipboardManager.h"
#include "platform/Application.h"
#include "platform/PopoverHost.h"
#include "popover/ClipboardListView.h"
#include "update/UpdateManager.h"

#include <utility>

namespace zamber::app {

AppDelegate::AppDelegate(const Desktop& desktop, const std::filesystem::path& historyFile,
                         std::function<void()> checkAndPromptMove)
    : clipboardManager(
          clipboard::ClipboardManager::create(desktop.pasteboard, desktop.userDefaults, desktop.scheduler, historyFile))
    , m_desktop(desktop)
    , m_checkAndPromptMove(std::move(checkAndPromptMove))
    , m_launchAtLogin(desktop.loginItem)
    , m_popupStyler([this] { return m_desktop.popover.isComposited(); }) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    m_desktop.application.setAccessoryPolicy();
    m_desktop.application.setShowRequestedHandler([this] { showPopover(); });
    createStatusItem();
    clipboardManager->onPaste = [weakSelf = weak_from_this()] {
        if (const auto self = weakSelf.lock()) {
            self->pasteToActiveApp();
        }
    };
    createPopover();
    observePreferences();
    updatePopoverAppearance();
    registerHotKey();
    clipboardManager->startMonitoring();
    update::UpdateManager::shared().startPeriodicChecks();
    if (m_checkAndPromptMove) {
        m_checkAndPromptMove();
    }
    checkAccessibility();
}

} // namespace zamber::app
