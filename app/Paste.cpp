// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "app/AppDelegate.h"
#include "clipboard/ClipboardManager.h"
#include "platform/AccessibilityTrust.h"
#include "platform/KeystrokePoster.h"
#include "platform/Log.h"
#include "platform/Pasteboard.h"
#include "platform/PopoverHost.h"
#include "platform/Scheduler.h"
#include "platform/SystemSound.h"
#include "platform/Workspace.h"

#include <chrono>

namespace zamber::app {

namespace {

/// Time for the previous application to come to the front.
constexpr std::chrono::milliseconds DELAY_AFTER_ACTIVATION{350};

/// Time for the clipboard to have the entry; the target is in front already.
constexpr std::chrono::milliseconds DELAY_AFTER_COPY{150};

void logMissingPermission() {
    logLine("❌ Accessibility NOT granted. Clipboard is set — press ⌘+V manually.");
    logLine("💡 To fix: System Settings → Privacy → Accessibility → add Xcode (or Zamber)");
    logLine("💡 Then REMOVE it and RE-ADD it, then restart the app.");
}

} // namespace

void AppDelegate::pasteToActiveApp() {
    m_desktop.popover.performClose();
    if (!m_previousApp) {
        logLine("❌ No previous app to paste into");
        return;
    }
    const QString name = m_previousApp->localizedName.value_or(QStringLiteral("unknown"));
    logLine("🔵 Pasting into: " + name.toStdString());
    playPasteSound();
    m_desktop.workspace.activate(*m_previousApp);
    const int written = m_desktop.pasteboard.changeCount();
    m_desktop.scheduler.after(DELAY_AFTER_ACTIVATION, [self = shared_from_this(), written] {
        if (self->m_desktop.trust.isTrustedInFront()) {
            self->cgEventPaste({.changeCount = written, .target = self->m_previousApp});
        } else {
            logMissingPermission();
        }
    });
}

void AppDelegate::quickPaste(int index) {
    const QList<clipboard::ClipboardItem> items = clipboardManager->filteredItems();
    if (index >= items.size()) {
        return;
    }
    m_previousApp = m_desktop.workspace.frontmostApplication();
    clipboardManager->copyToClipboard(items[index]);
    playPasteSound();
    const int written = m_desktop.pasteboard.changeCount();
    m_desktop.scheduler.after(DELAY_AFTER_COPY, [weakSelf = weak_from_this(), &trust = m_desktop.trust, written] {
        const bool isTrusted = trust.isTrustedInFront();
        if (const auto self = weakSelf.lock(); self && isTrusted) {
            self->cgEventPaste({.changeCount = written, .target = std::nullopt});
        }
    });
}

void AppDelegate::playPasteSound() {
    if (read(m_desktop.userDefaults, preferences::playSoundOnPaste)) {
        m_desktop.sounds.play(QStringLiteral("Tink"));
    }
}

void AppDelegate::cgEventPaste(const Paste& paste) {
    m_desktop.keystrokes.postPaste(paste, [](PasteOutcome outcome) {
        if (outcome == PasteOutcome::Posted) {
            logLine("✅ Pasted via CGEvent");
        }
    });
}

} // namespace zamber::app
