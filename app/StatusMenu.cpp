// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "platform/Appearance.h"
#include "platform/Application.h"
#include "platform/PopoverHost.h"
#include "platform/StatusItem.h"
#include "ui/Palette.h"

#include <QPalette>

namespace zamber::app {

void AppDelegate::createStatusItem() {
    m_desktop.statusItem.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
    updateMenuAppearance();
    m_desktop.statusItem.setClickedHandler([this](MouseButton button) { togglePopover(button); });
}

void AppDelegate::updateMenuAppearance() {
    m_popupStyler.setColors(ui::Palette::of(m_desktop.appearance).forWidgets());
}

void AppDelegate::togglePopover(MouseButton button) {
    if (button == MouseButton::Right) {
        showContextMenu();
    } else if (m_desktop.popover.isShown()) {
        m_desktop.popover.performClose();
    } else {
        showPopover();
    }
}

void AppDelegate::showContextMenu() {
    // The state is in the title alone; the blanks keep both titles the same width.
    const QString mark = m_launchAtLogin.isEnabled() ? QStringLiteral("✓ ") : QStringLiteral("  ");
    const MenuItem separator;
    m_desktop.statusItem.showMenuOnce({
        {.title = QStringLiteral("Settings…"),
         .keyEquivalent = QStringLiteral(","),
         .action = [this] { openSettings(); },
         .selector = QStringLiteral("openSettings")},
        separator,
        {.title = mark + QStringLiteral("Launch at Login"),
         .keyEquivalent = {},
         .action = [this] { toggleLaunchAtLogin(); },
         .selector = QStringLiteral("toggleLaunchAtLogin")},
        separator,
        {.title = QStringLiteral("Quit Zamber"),
         .keyEquivalent = QStringLiteral("q"),
         .action = [this] { quitApp(); },
         .selector = QStringLiteral("quitApp")},
    });
}

void AppDelegate::openSettings() {
    Application& application = m_desktop.application;
    application.activate();
    if (!application.sendAction(QStringLiteral("showSettingsWindow:")) &&
        !application.sendAction(QStringLiteral("showPreferencesWindow:"))) {
        application.postNotification(QStringLiteral("openSettings"));
    }
}

void AppDelegate::toggleLaunchAtLogin() {
    m_launchAtLogin.setEnabled(!m_launchAtLogin.isEnabled());
}

void AppDelegate::quitApp() {
    m_desktop.application.terminate();
}

} // namespace zamber::app
