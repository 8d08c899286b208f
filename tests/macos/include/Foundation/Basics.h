// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <stddef.h>
#include <stdint.h>

typedef bool BOOL;
typedef unsigned char Boolean;
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr
#define Nil nullptr

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef double CGFloat;
typedef double NSTimeInterval;
typedef const void* CFTypeRef;
typedef id (*IMP)(id, SEL, ...);

struct CGPoint {
    CGFloat x;
    CGFloat y;
};
struct CGSize {
    CGFloat width;
    CGFloat height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};
struct NSEdgeInsets {
    CGFloat top;
    CGFloat left;
    CGFloat bottom;
    CGFloat right;
};
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;
typedef NSUInteger NSRectEdge;
enum : NSRectEdge { NSRectEdgeMinX = 0, NSRectEdgeMinY = 1, NSRectEdgeMaxX = 2, NSRectEdgeMaxY = 3 };
struct NSRange {
    NSUInteger location;
    NSUInteger length;
};

constexpr NSPoint NSZeroPoint{0, 0};
constexpr NSRect NSZeroRect{{0, 0}, {0, 0}};
inline NSPoint NSMakePoint(CGFloat x, CGFloat y) {
    return {x, y};
}
inline NSSize NSMakeSize(CGFloat width, CGFloat height) {
    return {width, height};
}
inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}
inline NSRange NSMakeRange(NSUInteger location, NSUInteger length) {
    return {location, length};
}
inline CGFloat NSHeight(NSRect rectangle) {
    return rectangle.size.height;
}

@class NSArray<Element>, NSData, NSDictionary<Key, Value>, NSError, NSString, NSURL;
typedef NSString* NSKeyValueChangeKey;
typedef const struct __CFString* CFStringRef;
enum : NSUInteger { NSKeyValueObservingOptionNew = 1 };

@protocol NSObject
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa;
}
+ (instancetype)alloc;
+ (instancetype)new;
- (instancetype)init;
- (void)dealloc;
+ (Class)class;
- (Class)class;
- (BOOL)isKindOfClass:(Class)wanted;
- (BOOL)respondsToSelector:(SEL)selector;
- (BOOL)isEqual:(id)other;
- (id)performSelector:(SEL)selector withObject:(id)argument;
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSUInteger)options
            context:(void*)context;
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath;
- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary*)change
                       context:(void*)context;
@property(readonly, copy) NSString* description;
@end

@protocol NSCopying
@end

struct NSFastEnumerationState {
    unsigned long state;
    __unsafe_unretained id* itemsPtr;
    unsigned long* mutationsPtr;
    unsigned long extra[5];
};

extern "C" {
SEL NSSelectorFromString(NSString* name);
NSString* NSStringFromSelector(SEL selector);
void CFRelease(CFTypeRef reference);
}
inline CFTypeRef CFBridgingRetain(id object) {
    return (__bridge_retained CFTypeRef)object;
}
