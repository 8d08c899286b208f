// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "KeyValueObserving.h"

#include "tests/macos/runtime/Runtime.h"

#import <Foundation/Foundation.h>

#include <cstdio>
#include <cstdlib>
#include <mutex>

using namespace zamber;

namespace zamber::system {

namespace {

std::mutex observersMutex;

std::vector<Observation>& observations() {
    static auto* all = new std::vector<Observation>;
    return *all;
}

} // namespace

void observe(const std::string& subject, const std::string& key, void* observer) {
    const std::lock_guard lock(observersMutex);
    observations().push_back({subject, key, observer});
}

void stopObserving(const std::string& subject, const std::string& key, void* observer) {
    const std::lock_guard lock(observersMutex);
    const auto erased = std::erase(observations(), Observation{subject, key, observer});
    if (erased == 0) {
        // NSKeyValueObserving.h: "It is an error to invoke -removeObserver:forKeyPath: if the object has not been
        // registered as an observer."
        std::fprintf(stderr, "an observer is removed that is not there: %s\n", key.c_str());
        std::abort();
    }
}

void tellObservers(const std::string& subject, const std::string& key) {
    std::vector<Observation> found;
    {
        const std::lock_guard lock(observersMutex);
        for (const Observation& each : observations()) {
            if (each.subject == subject && each.key == key) {
                found.push_back(each);
            }
        }
    }
    // Observers are not retained, and one that another removes meanwhile may be told all the same.
    for (const Observation& each : found) {
        [(__bridge NSObject*)each.observer observeValueForKeyPath:[NSString stringWithUTF8String:key.c_str()]
                                                         ofObject:nil
                                                           change:nil
                                                          context:nullptr];
    }
}

std::string subjectOf(const void* object) {
    char address[32];
    std::snprintf(address, sizeof address, "%p", object);
    return address;
}

} // namespace zamber::system

@implementation NSObject
+ (instancetype)alloc {
    return (__bridge_transfer id)runtime::allocate(static_cast<runtime::Class*>((__bridge void*)self));
}
+ (instancetype)new {
    return [[self alloc] init];
}
- (instancetype)init {
    return self;
}
- (void)dealloc {
    runtime::dispose((__bridge void*)self);
}
+ (Class)class {
    return self;
}
- (Class)class {
    return (__bridge Class) static_cast<void*>(runtime::classOf((__bridge void*)self));
}
- (BOOL)isKindOfClass:(Class)wanted {
    return runtime::isKindOf((__bridge void*)self, static_cast<runtime::Class*>((__bridge void*)wanted));
}
- (BOOL)respondsToSelector:(SEL)selector {
    return runtime::implementation(runtime::classOf((__bridge void*)self),
                                   runtime::selectorNamed(reinterpret_cast<const char*>(selector))) != nullptr;
}
- (BOOL)isEqual:(id)other {
    return self == other;
}
- (id)performSelector:(SEL)selector withObject:(id)argument {
    const auto found =
        runtime::implementation(runtime::classOf((__bridge void*)self), reinterpret_cast<const char*>(selector));
    reinterpret_cast<void (*)(void*, SEL, void*)>(found)((__bridge void*)self, selector, (__bridge void*)argument);
    return nil;
}
- (NSString*)description {
    return [NSString stringWithUTF8String:runtime::classOf((__bridge void*)self)->data->name];
}
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSUInteger)options
            context:(void*)context {
    system::observe(system::subjectOf((__bridge void*)self), keyPath.UTF8String, (__bridge void*)observer);
}
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath {
    system::stopObserving(system::subjectOf((__bridge void*)self), keyPath.UTF8String, (__bridge void*)observer);
}
- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary*)change
                       context:(void*)context {
    std::fprintf(stderr, "an observer does not answer: %s\n", keyPath.UTF8String);
    std::abort();
}
@end

SEL NSSelectorFromString(NSString* name) {
    return reinterpret_cast<SEL>(const_cast<char*>(runtime::selectorNamed(name.UTF8String)));
}

NSString* NSStringFromSelector(SEL selector) {
    return [NSString stringWithUTF8String:reinterpret_cast<const char*>(selector)];
}
