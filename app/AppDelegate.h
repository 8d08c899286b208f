// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "install/LaunchAtLoginManager.h"
#include "platform/Desktop.h"
#include "platform/HotKeyCenter.h"
#include "platform/KeystrokePoster.h"
#include "platform/Scheduler.h"
#include "platform/StatusItem.h"
#include "platform/Workspace.h"
#include "ui/PopupStyler.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace zamber::clipboard {
class ClipboardManager;
}

namespace zamber::popover {
class ClipboardListView;
}

namespace zamber::app {

class PermissionWindow;

/// Holds the program together: the history, the status item, the popover, the hot keys and the way back into the
/// application that was in front. Lives as long as the process. Each duty has a source file of its own.
class AppDelegate final : public std::enable_shared_from_this<AppDelegate> {
public:
    /// `checkAndPromptMove` is run once, at the start: it offers to move the program to where it belongs. It may be
    /// empty.
    AppDelegate(const Desktop& desktop, const std::filesystem::path& historyFile,
                std::function<void()> checkAndPromptMove);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// Starts everything, in an order that matters. Called once, when the application object exists.
    void applicationDidFinishLaunching();

    // Popover
    void updatePopoverSize();
    void updatePopoverAppearance();

    // Accessibility
    void checkAccessibility();
    void showPermissionWindow();

    // Hot keys
    void registerHotKey();
    void quickPaste(int index);

    // Status item
    void togglePopover(MouseButton button);
    void showContextMenu();
    void openSettings();
    void toggleLaunchAtLogin();
    void quitApp();

    // Paste
    void showPopover();
    void pasteToActiveApp();

    const std::shared_ptr<clipboard::ClipboardManager> clipboardManager;

private:
    void createStatusItem();
    void updateMenuAppearance();
    void createPopover();
    QWidget* makeListView();
    void followUpdates();
    void observePreferences();
    void startAccessibilityFlow();
    void handleHotKey(std::uint32_t id);
    void playPasteSound();
    void cgEventPaste(const Paste& paste);

    Desktop m_desktop;
    std::function<void()> m_checkAndPromptMove;
    install::LaunchAtLoginManager m_launchAtLogin;
    std::unique_ptr<popover::ClipboardListView> m_listView;
    std::optional<HotKeyRef> m_hotKeyRef;
    std::optional<HotKeyRef> m_quickPasteHotKey2Ref;
    std::optional<HotKeyRef> m_quickPasteHotKey3Ref;
    std::optional<RunningApplication> m_previousApp;
    std::optional<Scheduler::Token> m_accessibilityTimer;
    std::unique_ptr<PermissionWindow> m_permissionWindow;
    ui::PopupStyler m_popupStyler;
};

} // namespace zamber::app
