// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacWindows.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#import <AppKit/AppKit.h>

namespace zamber::macos {

namespace {

NSWindow* systemWindow(WId window) {
    return ((__bridge NSView*)reinterpret_cast<void*>(window)).window;
}

} // namespace

void bringWindowToFront(WId window) {
    NSWindow* const front = systemWindow(window);
    // Without this, ordering the window to the front would take the user to the space that the window is in.
    front.collectionBehavior |= NSWindowCollectionBehaviorMoveToActiveSpace;
    [NSApp activateIgnoringOtherApps:YES];
    [front makeKeyAndOrderFront:nil];
}

FloatingLevel::FloatingLevel() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool FloatingLevel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        const auto* const widget = static_cast<QWidget*>(watched);
        if (widget->windowFlags().testFlag(Qt::WindowStaysOnTopHint)) {
            systemWindow(widget->winId()).level = NSFloatingWindowLevel;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zamber::macos
