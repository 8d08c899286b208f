// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacKeyMonitor.h"

#include "platform/macos/Retained.h"

#include <QApplication>

#import <AppKit/AppKit.h>
#import <Carbon/Carbon.h>

#include <utility>

namespace zamber::macos {

namespace {

HardwareKey hardwareKey(unsigned short keyCode) {
    switch (keyCode) {
    case kVK_UpArrow:
        return HardwareKey::UpArrow;
    case kVK_DownArrow:
        return HardwareKey::DownArrow;
    case kVK_Return:
        return HardwareKey::Return;
    case kVK_Escape:
        return HardwareKey::Escape;
    default:
        return HardwareKey::Other;
    }
}

} // namespace

MacKeyMonitor::~MacKeyMonitor() {
    if (m_monitor != nullptr) {
        [NSEvent removeMonitor:released<NSObject>(m_monitor)];
    }
}

KeyMonitor::Token MacKeyMonitor::addHandler(Handler handler) {
    if (m_monitor == nullptr) {
        const id monitor = [NSEvent
            addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                         handler:^NSEvent*(NSEvent* event) {
                                           const bool isForMenu = QApplication::activePopupWidget() != nullptr;
                                           const bool isSwallowed =
                                               !isForMenu &&
                                               m_handlers.ask(hardwareKey(event.keyCode)) == KeyDisposition::Swallow;
                                           return isSwallowed ? nil : event;
                                         }];
        m_monitor = retained(monitor);
    }
    return m_handlers.add(std::move(handler));
}

void MacKeyMonitor::removeHandler(Token token) {
    m_handlers.remove(token);
    if (m_handlers.isEmpty() && m_monitor != nullptr) {
        [NSEvent removeMonitor:released<NSObject>(std::exchange(m_monitor, nullptr))];
    }
}

} // namespace zamber::macos
