// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/PermissionWindow.h"
#include "platform/AccessibilityTrust.h"
#include "platform/Log.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <chrono>
#include <utility>

namespace zamber::app {

namespace {

constexpr std::chrono::milliseconds POLL_INTERVAL{1000};

} // namespace

void AppDelegate::checkAccessibility() {
    m_desktop.trust.whenKnown([weakSelf = weak_from_this()] {
        if (const auto self = weakSelf.lock()) {
            self->startAccessibilityFlow();
        }
    });
}

void AppDelegate::startAccessibilityFlow() {
    if (m_desktop.trust.isTrusted()) {
        logLine("✅ Accessibility: trusted");
        return;
    }
    logLine("⚠️ Accessibility: NOT trusted — opening System Settings");
    if (const auto address = m_desktop.trust.settingsAddress()) {
        m_desktop.workspace.open(*address);
    }
    showPermissionWindow();
    // The poll goes on without the delegate, so it stops itself.
    const auto timer = std::make_shared<Scheduler::Token>();
    *timer = m_desktop.scheduler.every(POLL_INTERVAL, [weakSelf = weak_from_this(), timer, &trust = m_desktop.trust,
                                                       &scheduler = m_desktop.scheduler] {
        if (!trust.isTrusted()) {
            return;
        }
        scheduler.invalidate(*timer);
        if (const auto self = weakSelf.lock()) {
            self->m_accessibilityTimer.reset();
            if (self->m_permissionWindow) {
                self->m_permissionWindow->close();
            }
            self->m_permissionWindow.reset();
        }
        logLine("✅ Accessibility granted!");
    });
    m_accessibilityTimer = *timer;
}

void AppDelegate::showPermissionWindow() {
    std::function<void()> showDialog;
    if (m_desktop.trust.hasDialog()) {
        showDialog = [&trust = m_desktop.trust] { trust.showDialog(); };
    }
    auto window = std::make_unique<PermissionWindow>(m_desktop.appearance, m_desktop.symbols, std::move(showDialog));
    window->showInCentre();
    m_permissionWindow = std::move(window);
}

} // namespace zamber::app
