// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Programs.h"
#include "Values.h"

#include "tests/macos/System.h"

#include <QFileInfo>

#import <AppKit/AppKit.h>

#include <map>

// The rules (NSWorkspace.h, NSRunningApplication.h): what runs is known by objects that are equal for one process;
// activating one that has ended does nothing and returns NO; the completion handler is called on another thread.

using namespace zamber::system;

namespace {

constexpr int FIRST_PROCESS = 500;

struct Program {
    NSString* name;
    BOOL hasEnded = NO;
};

int inFront = 0;

std::map<int, Program>& programs() {
    static auto* all = new std::map<int, Program>;
    return *all;
}

} // namespace

@interface NSRunningApplication () {
@public
    int _number;
}
@end

@implementation NSRunningApplication
- (NSString*)localizedName {
    return programs()[_number].name;
}
- (int)processIdentifier {
    return FIRST_PROCESS + _number;
}
- (BOOL)isTerminated {
    return programs()[_number].hasEnded;
}
- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:NSRunningApplication.class] &&
           static_cast<NSRunningApplication*>(other)->_number == _number;
}
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options {
    note("NSRunningApplication %s activateWithOptions: %lu", words(self.localizedName).c_str(), options);
    if (self.terminated) {
        return NO;
    }
    inFront = _number;
    return YES;
}
@end

@implementation NSWorkspaceOpenConfiguration
+ (instancetype)configuration {
    return [self new];
}
@end

@implementation NSWorkspace
+ (NSWorkspace*)sharedWorkspace {
    static NSWorkspace* const only = [NSWorkspace new];
    return only;
}
- (NSNotificationCenter*)notificationCenter {
    static NSNotificationCenter* const own = [NSNotificationCenter new];
    return own;
}
- (NSRunningApplication*)frontmostApplication {
    note("NSWorkspace frontmostApplication");
    if (inFront == 0) {
        return nil;
    }
    NSRunningApplication* const application = [NSRunningApplication new];
    application->_number = inFront;
    return application;
}
- (BOOL)accessibilityDisplayShouldReduceMotion {
    return isReducedMotion();
}
- (BOOL)openURL:(NSURL*)address {
    note("NSWorkspace openURL: %s", words(address.absoluteString).c_str());
    return YES;
}
- (void)openApplicationAtURL:(NSURL*)application
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^)(NSRunningApplication* started, NSError* error))handler {
    const QString path = application.path.qtText;
    note("NSWorkspace openApplicationAtURL: %s createsNewApplicationInstance: %d", path.toUtf8().constData(),
         configuration.createsNewApplicationInstance);
    NSError* const failure =
        QFileInfo::exists(path) ? nil : error("NSCocoaErrorDomain", 260, QStringLiteral("The file doesn’t exist."));
    const bool isNew = configuration.createsNewApplicationInstance;
    doElsewhere([=] {
        @autoreleasepool {
            if (failure == nil && isNew) {
                start(path.toStdString(), {});
            }
            handler(nil, failure);
        }
    });
}
@end

namespace zamber::system {

int openApplication(const char* name) {
    const int number = static_cast<int>(programs().size()) + 1;
    programs()[number] = {[NSString stringWithUTF8String:name]};
    return inFront = number;
}

void quitApplication(int number) {
    programs()[number].hasEnded = YES;
    inFront = inFront == number ? 0 : inFront;
}

void bringApplicationToFront(int number) {
    inFront = number;
}

int applicationInFront() {
    return inFront;
}

} // namespace zamber::system
