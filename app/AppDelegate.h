// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Desktop.h"
#include "platform/HotKeyCenter.h"
#include "platform/StatusItem.h"
#include "platform/Workspace.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace zamber {

class ClipboardListView;
class ClipboardManager;

/// Holds the program together: the history, the status item, the popover, the hot keys and the way back into the
/// application that was in front. Lives as long as the process. Each duty has a source file of its own.
class AppDelegate final : public std::enable_shared_from_this<AppDelegate> {
public:
    AppDelegate(const Desktop& desktop, const std::filesystem::path& historyFile);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// Starts everything, in an order that matters. Called once, by whoever runs the event loop.
    void applicationDidFinishLaunching();

    // Status item
    void togglePopover(MouseButton button);
    void showContextMenu();
    void quitApp();

    // Popover
    void showPopover();
    void updatePopoverSize();
    void updatePopoverAppearance();

    // Hot keys
    void registerHotKey();

    // Paste
    void quickPaste(int index);
    void pasteToActiveApp();

    const std::shared_ptr<ClipboardManager> clipboardManager;

    // Accessibility
    void checkAccessibility();

private:
    void createStatusItem();
    void createPopover();
    void observePreferences();
    void handleHotKey(std::uint32_t id);
    void cgEventPaste(const std::optional<RunningApplication>& target);

    Desktop m_desktop;
    std::unique_ptr<ClipboardListView> m_listView;
    std::optional<HotKeyRef> m_hotKeyRef;
    std::optional<HotKeyRef> m_quickPasteHotKey2Ref;
    std::optional<HotKeyRef> m_quickPasteHotKey3Ref;
    std::optional<RunningApplication> m_previousApp;
};

} // namespace zamber
