// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "platform/Application.h"
#include "platform/PopoverHost.h"
#include "platform/StatusItem.h"

namespace zamber {

void AppDelegate::createStatusItem() {
    m_desktop.statusItem.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
    m_desktop.statusItem.setClickedHandler([this](MouseButton button) { togglePopover(button); });
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
    m_desktop.statusItem.showMenuOnce({
        {.title = QStringLiteral("Quit Zamber"), .keyEquivalent = QStringLiteral("q"), .action = [this] { quitApp(); }},
    });
}

void AppDelegate::quitApp() {
    m_desktop.application.terminate();
}

} // namespace zamber
