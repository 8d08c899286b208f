// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "clipboard/ClipboardManager.h"
#include "platform/AccessibilityTrust.h"
#include "platform/Application.h"
#include "platform/Log.h"
#include "popover/ClipboardListView.h"

namespace zamber {

AppDelegate::AppDelegate(const Desktop& desktop, const std::filesystem::path& historyFile)
    : clipboardManager(
          ClipboardManager::create(desktop.pasteboard, desktop.userDefaults, desktop.scheduler, historyFile))
    , m_desktop(desktop) {}

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
    checkAccessibility();
}

void AppDelegate::checkAccessibility() {
    if (m_desktop.trust.isTrusted()) {
        logLine("✅ Accessibility: trusted");
    }
}

} // namespace zamber
