// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacUserDefaults.h"

#include "platform/macos/Retained.h"

#import <Foundation/Foundation.h>

#include <limits>
#include <utility>

/// Observes one key of some defaults from its making until it is told to stop.
@interface ZamberDefaultsObserver : NSObject
- (instancetype)initWithDefaults:(NSUserDefaults*)defaults
                             key:(NSString*)key
                         handler:(zamber::UserDefaults::Observer)handler;
- (void)stop;
@end

@implementation ZamberDefaultsObserver {
    NSUserDefaults* _defaults;
    NSString* _key;
    id _lastValue;
    zamber::UserDefaults::Observer _handler;
    BOOL _isStopped;
}

- (instancetype)initWithDefaults:(NSUserDefaults*)defaults
                             key:(NSString*)key
                         handler:(zamber::UserDefaults::Observer)handler {
    self = [super init];
    _defaults = defaults;
    _key = key;
    _lastValue = [defaults objectForKey:key];
    _handler = std::move(handler);
    [defaults addObserver:self forKeyPath:key options:NSKeyValueObservingOptionNew context:nullptr];
    return self;
}

- (void)stop {
    _isStopped = YES;
    [_defaults removeObserver:self forKeyPath:_key];
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context {
    // Changes by another process are reported on any thread.
    if (NSThread.isMainThread) {
        [self tell];
    } else {
        dispatch_async(dispatch_get_main_queue(), ^{
          [self tell];
        });
    }
}

- (void)tell {
    // Writing an equal value is reported too, and our own change a second time when it comes back from the server.
    const id value = [_defaults objectForKey:_key];
    if (_isStopped || value == _lastValue || [value isEqual:_lastValue]) {
        return;
    }
    _lastValue = value;
    _handler();
}
@end

namespace zamber::macos {

namespace {

NSUserDefaults* get(void* defaults) {
    return borrowed<NSUserDefaults>(defaults);
}

bool isAbsent(void* defaults, const QString& key) {
    return [get(defaults) objectForKey:key.toNSString()] == nil;
}

} // namespace

MacUserDefaults::MacUserDefaults()
    : m_defaults(retained(NSUserDefaults.standardUserDefaults)) {}

MacUserDefaults::MacUserDefaults(const QString& suite)
    : m_defaults(retained([[NSUserDefaults alloc] initWithSuiteName:suite.toNSString()])) {}

MacUserDefaults::~MacUserDefaults() {
    while (!m_observers.empty()) {
        removeObserver({m_observers.begin()->first});
    }
    released<NSUserDefaults>(m_defaults);
}

std::optional<QString> MacUserDefaults::string(const QString& key) const {
    NSString* const text = [get(m_defaults) stringForKey:key.toNSString()];
    return text != nil ? std::optional(QString::fromNSString(text)) : std::nullopt;
}

std::optional<int> MacUserDefaults::integer(const QString& key) const {
    if (isAbsent(m_defaults, key)) {
        return std::nullopt;
    }
    constexpr NSInteger least = std::numeric_limits<int>::min();
    constexpr NSInteger most = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(least, [get(m_defaults) integerForKey:key.toNSString()], most));
}

std::optional<bool> MacUserDefaults::boolean(const QString& key) const {
    if (isAbsent(m_defaults, key)) {
        return std::nullopt;
    }
    return [get(m_defaults) boolForKey:key.toNSString()];
}

void MacUserDefaults::setString(const QString& key, const QString& value) {
    [get(m_defaults) setObject:value.toNSString() forKey:key.toNSString()];
}

void MacUserDefaults::setInteger(const QString& key, int value) {
    [get(m_defaults) setInteger:value forKey:key.toNSString()];
}

void MacUserDefaults::setBoolean(const QString& key, bool value) {
    [get(m_defaults) setBool:value forKey:key.toNSString()];
}

UserDefaults::ObserverToken MacUserDefaults::addObserver(const QString& key, Observer observer) {
    m_observers[++m_lastId] = retained([[ZamberDefaultsObserver alloc] initWithDefaults:get(m_defaults)
                                                                                    key:key.toNSString()
                                                                                handler:std::move(observer)]);
    return {m_lastId};
}

void MacUserDefaults::removeObserver(ObserverToken token) {
    const auto found = m_observers.find(token.id);
    if (found == m_observers.end()) {
        return;
    }
    auto* const observer = released<ZamberDefaultsObserver>(found->second);
    m_observers.erase(found);
    [observer stop];
    // The notification that led here may be its own, or about to come to it.
    dispatch_async(dispatch_get_main_queue(), ^{
      (void)observer;
    });
}

} // namespace zamber::macos
