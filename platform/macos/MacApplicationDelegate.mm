// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacApplicationDelegate.h"

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include <map>
#include <utility>

@interface ZamberApplicationDelegate : NSObject <NSApplicationDelegate>
@end

namespace zamber::macos {

namespace {

std::map<QString, std::function<void()>>& responders() {
    static std::map<QString, std::function<void()>> all;
    return all;
}

std::function<void()>& reopenHandler() {
    static std::function<void()> handler;
    return handler;
}

} // namespace

void installApplicationDelegate() {
    static ZamberApplicationDelegate* const delegate =
        [ZamberApplicationDelegate new]; // the application holds it weakly
    NSApplication.sharedApplication.delegate = delegate;
}

void respondToAction(const QString& selector, std::function<void()> responder) {
    responders()[selector] = std::move(responder);
    const QString name = selector; // of a reference a block keeps the address alone
    const IMP method = imp_implementationWithBlock(^(id) {
      const std::function<void()> current = responders()[name];
      current();
    });
    if (!class_addMethod(ZamberApplicationDelegate.class, NSSelectorFromString(selector.toNSString()), method,
                         "v@:@")) {
        imp_removeBlock(method); // it has had one from before, which does the same
    }
}

void setReopenHandler(std::function<void()> handler) {
    reopenHandler() = std::move(handler);
}

} // namespace zamber::macos

@implementation ZamberApplicationDelegate
- (BOOL)applicationShouldHandleReopen:(NSApplication*)sender hasVisibleWindows:(BOOL)hasVisibleWindows {
    if (zamber::macos::reopenHandler()) {
        zamber::macos::reopenHandler()();
    }
    return NO;
}
@end
