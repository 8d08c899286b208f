// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

// Declarations of what the macOS adapters and their suites use of the system, so that they can be compiled and run
// elsewhere. ./check-macos compiles the same sources against the system's own headers.

#include <Foundation/Basics.h>
#include <Foundation/Dispatch.h>
#include <Foundation/Files.h>
#include <Foundation/Values.h>

@interface NSNotification : NSObject
@property(readonly, copy) NSString* name;
@end

@interface NSNotificationCenter : NSObject
@property(class, readonly) NSNotificationCenter* defaultCenter;
- (void)postNotificationName:(NSString*)name object:(id)object;
- (void)addObserver:(id)observer selector:(SEL)selector name:(NSString*)name object:(id)object;
- (id)addObserverForName:(NSString*)name object:(id)object queue:(id)queue usingBlock:(void (^)(NSNotification*))block;
- (void)removeObserver:(id)observer;
@end

@interface NSUserDefaults : NSObject
@property(class, readonly) NSUserDefaults* standardUserDefaults;
- (instancetype)initWithSuiteName:(NSString*)suite;
- (id)objectForKey:(NSString*)key;
- (NSString*)stringForKey:(NSString*)key;
- (NSInteger)integerForKey:(NSString*)key;
- (BOOL)boolForKey:(NSString*)key;
- (void)setObject:(id)value forKey:(NSString*)key;
- (void)setInteger:(NSInteger)value forKey:(NSString*)key;
- (void)setBool:(BOOL)value forKey:(NSString*)key;
- (void)removePersistentDomainForName:(NSString*)domain;
@end

typedef NSUInteger NSTextCheckingTypes;
enum : NSTextCheckingTypes { NSTextCheckingTypeLink = 1U << 5U };

@interface NSTextCheckingResult : NSObject
@property(readonly) NSRange range;
@property(readonly, copy) NSURL* URL;
@end

@interface NSDataDetector : NSObject
+ (NSDataDetector*)dataDetectorWithTypes:(NSTextCheckingTypes)types error:(NSError**)error;
- (NSTextCheckingResult*)firstMatchInString:(NSString*)text options:(NSUInteger)options range:(NSRange)range;
@end
