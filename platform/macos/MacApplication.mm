// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacApplication.h"

#include "platform/macos/MacApplicationDelegate.h"

#include <QGuiApplication>

#import <AppKit/AppKit.h>

#include <utility>

namespace zamber::macos {

void MacApplication::setAccessoryPolicy() {
    [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

void MacApplication::activate() {
    [NSApp activateIgnoringOtherApps:YES];
}

void MacApplication::terminate() {
    [NSApp terminate:nil];
}

bool MacApplication::sendAction(const QString& name) {
    return [NSApp sendAction:NSSelectorFromString(name.toNSString()) to:nil from:nil];
}

void MacApplication::postNotification(const QString& name) {
    [NSNotificationCenter.defaultCenter postNotificationName:name.toNSString() object:nil];
}

void MacApplication::setShowRequestedHandler(std::function<void()> handler) {
    setReopenHandler(std::move(handler));
}

} // namespace zamber::macos
