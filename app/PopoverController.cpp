// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "app/AppDelegate.h"
#include "app/PermissionWindow.h"
#include "platform/Appearance.h"
#include "platform/Application.h"
#include "platform/PopoverHost.h"
#include "platform/Scheduler.h"
#include "popover/ClipboardListView.h"
#include "popover/PopoverPreferences.h"
#include "update/UpdateManager.h"

namespace zamber::app {

void AppDelegate::createPopover() {
    updatePopoverSize();
    m_desktop.popover.setContent([this] { return makeListView(); });
    m_desktop.appearance.addChangedHandler([this] {
        updatePopoverAppearance();
        updateMenuAppearance();
        if (m_listView) {
            m_listView->updateAppearance();
        }
        if (m_permissionWindow) {
            m_permissionWindow->updateAppearance();
        }
    });
}

QWidget* AppDelegate::makeListView() {
    m_listView = std::make_unique<popover::ClipboardListView>(
        m_desktop.keyMonitor, m_desktop.appearance, m_desktop.symbols, m_desktop.userDefaults, m_desktop.scheduler,
        clipboardManager,
        popover::PopoverServices{.openSettings = [this] { openSettings(); },
                                 .closePopover = [this] { m_desktop.popover.performClose(); },
                                 .openAddress = [this](const QUrl& address) { m_desktop.workspace.open(address); },
                                 .showMenu = [this](const QList<MenuItem>& menu,
                                                    QPoint place) { return m_desktop.popover.showMenu(menu, place); },
                                 .linkDetector = &m_desktop.links,
                                 .commandKeyHint = m_desktop.hotKeys.commandKeyHint()});
    followUpdates();
    return m_listView.get();
}

void AppDelegate::followUpdates() {
    update::UpdateManager& updates = update::UpdateManager::shared();
    const auto showNotice = [this, &updates] {
        if (!updates.updateAvailable() || updates.isVersionSkipped()) {
            m_listView->setUpdateNotice(std::nullopt);
            return;
        }
        m_listView->setUpdateNotice(popover::UpdateNotice{.latestVersion = updates.latestVersion(),
                                                          .download = [&updates] { updates.downloadUpdate(); },
                                                          .skip = [&updates] { updates.skipVersion(); }});
    };
    QObject::connect(&updates, &update::UpdateManager::changed, m_listView.get(), showNotice);
    showNotice();
}

void AppDelegate::observePreferences() {
    // In the loop's next turn: observers are called in the middle of the write that changes the preference.
    m_desktop.userDefaults.addObserver(preferences::popoverSize.name, [this] {
        m_desktop.scheduler.soon([self = shared_from_this()] { self->updatePopoverSize(); });
    });
    m_desktop.userDefaults.addObserver(preferences::appTheme.name, [this] {
        m_desktop.scheduler.soon([self = shared_from_this()] { self->updatePopoverAppearance(); });
    });
}

void AppDelegate::showPopover() {
    const std::optional<Anchor> button = m_desktop.statusItem.button();
    if (!button) {
        return;
    }
    // Asked before a window of ours takes the focus.
    m_previousApp = m_desktop.workspace.frontmostApplication();
    m_desktop.popover.show(*button, PopoverEdge::MinY);
    m_desktop.application.activate();
}

void AppDelegate::updatePopoverSize() {
    m_desktop.popover.setContentSize(popover::popoverSize(m_desktop.userDefaults));
}

void AppDelegate::updatePopoverAppearance() {
    m_desktop.popover.setAppearance(popover::popoverAppearance(m_desktop.userDefaults));
}

} // namespace zamber::app
