// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "KeyValueObserving.h"
#include "Values.h"

#include "tests/macos/System.h"

#import <Foundation/Foundation.h>

#include <map>
#include <mutex>
#include <thread>

// The rules (NSUserDefaults.h):
// - stringForKey: "will convert numbers to strings"; integerForKey: and boolForKey: convert strings as NSString's
//   integerValue and boolValue do; an absent key is 0 and NO.
// - Observers are told in the setter, on its thread, and again when the server has taken the value over; the changes of
//   another process are told on whatever thread its message comes.
// - Setting the same value again is told too.

using namespace zamber::system;

namespace {

std::mutex defaultsMutex;

std::map<std::string, std::map<std::string, id>>& domains() {
    static auto* all = new std::map<std::string, std::map<std::string, id>>;
    return *all;
}

void store(const std::string& domain, const std::string& key, id value) {
    const std::lock_guard lock(defaultsMutex);
    domains()[domain][key] = value;
}

} // namespace

namespace zamber::system {

/// What the command "defaults write" does, and the server then.
void writeDefaultsElsewhere(const QString& domain, const QString& key, const QString& value) {
    std::thread([&] {
        @autoreleasepool {
            store(domain.toStdString(), key.toStdString(), text(value));
            tellObservers(domain.toStdString(), key.toStdString());
        }
    }).join();
}

} // namespace zamber::system

@implementation NSUserDefaults {
    std::string _domain;
}
+ (NSUserDefaults*)standardUserDefaults {
    static NSUserDefaults* const standard = [[NSUserDefaults alloc] initWithSuiteName:@"standard"];
    return standard;
}
- (instancetype)initWithSuiteName:(NSString*)suite {
    _domain = suite.UTF8String;
    return self;
}
- (id)objectForKey:(NSString*)key {
    const std::lock_guard lock(defaultsMutex);
    auto& values = domains()[_domain];
    const auto found = values.find(key.UTF8String);
    return found != values.end() ? found->second : nil;
}
- (NSString*)stringForKey:(NSString*)key {
    const id value = [self objectForKey:key];
    return [value isKindOfClass:NSNumber.class] ? [value stringValue] : value;
}
- (NSInteger)integerForKey:(NSString*)key {
    return [[self objectForKey:key] integerValue];
}
- (BOOL)boolForKey:(NSString*)key {
    return [[self objectForKey:key] boolValue];
}
- (void)setObject:(id)value forKey:(NSString*)key {
    store(_domain, key.UTF8String, value);
    tellObservers(_domain, key.UTF8String);
    later(5, [domain = _domain, name = std::string(key.UTF8String)] {
        std::thread([&] {
            @autoreleasepool {
                tellObservers(domain, name);
            }
        }).join();
    });
}
- (void)setInteger:(NSInteger)value forKey:(NSString*)key {
    [self setObject:[NSNumber numberWithInteger:value] forKey:key];
}
- (void)setBool:(BOOL)value forKey:(NSString*)key {
    [self setObject:[NSNumber numberWithBool:value] forKey:key];
}
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSUInteger)options
            context:(void*)context {
    note("NSUserDefaults %s addObserver forKeyPath: %s options: %lu context: %p", _domain.c_str(), keyPath.UTF8String,
         options, context);
    observe(_domain, keyPath.UTF8String, (__bridge void*)observer);
}
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath {
    stopObserving(_domain, keyPath.UTF8String, (__bridge void*)observer);
}
- (void)removePersistentDomainForName:(NSString*)domain {
    const std::lock_guard lock(defaultsMutex);
    domains().erase(domain.UTF8String);
}
@end
