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
        [ZamberApplicationDelegate new]; // kept alive here, since the application refers to it weakly
    NSApplication.sharedApplication.delegate = delegate;
}

void respondToAction(const QString& selector, std::function<void()> responder) {
    responders()[selector] = std::move(responder);
    const QString name = selector; // a copy, since a block keeps only the address of a reference
    const IMP method = imp_implementationWithBlock(^(id) {
      const std::function<void()> current = responders()[name];
      current();
    });
    if (!class_addMethod(ZamberApplicationDelegate.class, NSSelectorFromString(selector.toNSString()), method,
                         "v@:@")) {
        imp_removeBlock(method); // the class has had this method since an earlier call
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
