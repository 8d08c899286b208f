// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "RunLoop.h"
#include "Values.h"

#include "tests/macos/System.h"

#import <Foundation/Foundation.h>

#include <vector>

using namespace zamber::system;

@interface NSNotification () {
@public
    NSString* _name;
}
@end
@implementation NSNotification
- (NSString*)name {
    return _name;
}
@end

@interface ZamberNotificationObserver : NSObject {
@public
    __unsafe_unretained id _observer; // not retained, see NSNotification.h
    SEL _selector;
    NSString* _name;
    void (^_block)(NSNotification*);
}
@end
@implementation ZamberNotificationObserver
@end

@implementation NSNotificationCenter {
    std::vector<ZamberNotificationObserver*> _observers;
}
+ (NSNotificationCenter*)defaultCenter {
    static NSNotificationCenter* const only = [NSNotificationCenter new];
    return only;
}
- (void)postNotificationName:(NSString*)name object:(id)object {
    note("NSNotificationCenter postNotificationName: %s object: %s", words(name).c_str(),
         object != nil ? "one" : "nil");
    NSNotification* const notification = [NSNotification new];
    notification->_name = name;
    const std::vector<ZamberNotificationObserver*> all = _observers;
    for (ZamberNotificationObserver* const& each : all) {
        if (![each->_name isEqual:name]) {
            continue;
        }
        if (each->_block != nil) {
            each->_block(notification);
        } else {
            [each->_observer performSelector:each->_selector withObject:notification];
        }
    }
}
- (void)addObserver:(id)observer selector:(SEL)selector name:(NSString*)name object:(id)object {
    ZamberNotificationObserver* const entry = [ZamberNotificationObserver new];
    entry->_observer = observer;
    entry->_selector = selector;
    entry->_name = name;
    _observers.push_back(entry);
}
- (id)addObserverForName:(NSString*)name object:(id)object queue:(id)queue usingBlock:(void (^)(NSNotification*))block {
    ZamberNotificationObserver* const entry = [ZamberNotificationObserver new];
    entry->_observer = entry;
    entry->_name = name;
    entry->_block = block;
    _observers.push_back(entry);
    return entry;
}
- (void)removeObserver:(id)observer {
    std::erase_if(_observers, [observer](ZamberNotificationObserver* each) { return each->_observer == observer; });
}
@end
