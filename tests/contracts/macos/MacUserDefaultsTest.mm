// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacUserDefaults.h"

#include "MainLoop.h"

#include "tests/contracts/UserDefaultsContract.h"

#import <Foundation/Foundation.h>

namespace zamber::macos {

namespace {

/// A domain of its own, which goes with the rig.
struct MacUserDefaultsRig {
    NSString* suite = [@"app.zamber.test." stringByAppendingString:NSUUID.UUID.UUIDString];
    MacUserDefaults real{QString::fromNSString(suite)};

    ~MacUserDefaultsRig() { [[[NSUserDefaults alloc] initWithSuiteName:suite] removePersistentDomainForName:suite]; }

    UserDefaults& defaults() { return real; }
    void writeFromOutside(const QString& key, const QString& value) {
        NSTask* const task = [NSTask new];
        task.executableURL = [NSURL fileURLWithPath:@"/usr/bin/defaults"];
        task.arguments = @[ @"write", suite, key.toNSString(), @"-string", value.toNSString() ];
        ASSERT_TRUE([task launchAndReturnError:nil]);
        [task waitUntilExit];
        ASSERT_EQ(task.terminationStatus, 0);
    }
    bool waitUntil(const std::function<bool()>& condition) { return zamber::macos::waitUntil(condition); }
    void settle() { letPass(); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, UserDefaultsContract, MacUserDefaultsRig);

} // namespace zamber::macos
