// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <Foundation/Basics.h>

typedef struct ZamberQueue* dispatch_queue_t;
typedef uint64_t dispatch_time_t;
typedef void (^dispatch_block_t)(void);

constexpr dispatch_time_t DISPATCH_TIME_NOW = 0;

extern "C" {
dispatch_queue_t dispatch_get_main_queue();
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);
dispatch_time_t dispatch_time(dispatch_time_t from, int64_t nanoseconds);
}

@interface NSDate : NSObject
@property(class, readonly) NSDate* date;
@property(readonly) NSTimeInterval timeIntervalSince1970;
+ (NSDate*)dateWithTimeIntervalSinceNow:(NSTimeInterval)seconds;
@end

typedef NSString* NSRunLoopMode;
extern NSRunLoopMode const NSDefaultRunLoopMode;
extern NSRunLoopMode const NSRunLoopCommonModes;

@interface NSTimer : NSObject
+ (NSTimer*)scheduledTimerWithTimeInterval:(NSTimeInterval)interval
                                   repeats:(BOOL)repeats
                                     block:(void (^)(NSTimer*))block;
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval repeats:(BOOL)repeats block:(void (^)(NSTimer*))block;
- (void)invalidate;
@end

@interface NSRunLoop : NSObject
@property(class, readonly) NSRunLoop* currentRunLoop;
@property(class, readonly) NSRunLoop* mainRunLoop;
- (BOOL)runMode:(NSRunLoopMode)mode beforeDate:(NSDate*)limit;
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode;
@end

@interface NSThread : NSObject
@property(class, readonly) BOOL isMainThread;
@end

@interface NSProcessInfo : NSObject
@property(class, readonly) NSProcessInfo* processInfo;
@property(readonly) NSTimeInterval systemUptime;
@end
