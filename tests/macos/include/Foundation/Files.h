// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <Foundation/Values.h>

typedef NSUInteger NSSearchPathDirectory;
typedef NSUInteger NSSearchPathDomainMask;
enum : NSSearchPathDirectory { NSApplicationSupportDirectory = 14 };
enum : NSSearchPathDomainMask { NSUserDomainMask = 1 };

@interface NSFileManager : NSObject
@property(class, readonly) NSFileManager* defaultManager;
- (NSArray<NSURL*>*)URLsForDirectory:(NSSearchPathDirectory)directory inDomains:(NSSearchPathDomainMask)domains;
- (NSDictionary*)attributesOfItemAtPath:(NSString*)path error:(NSError**)error;
- (BOOL)removeItemAtPath:(NSString*)path error:(NSError**)error;
- (BOOL)copyItemAtPath:(NSString*)source toPath:(NSString*)destination error:(NSError**)error;
- (BOOL)trashItemAtURL:(NSURL*)item resultingItemURL:(NSURL**)result error:(NSError**)error;
@end

@interface NSBundle : NSObject
@property(class, readonly) NSBundle* mainBundle;
@property(readonly, copy) NSString* bundlePath;
@property(readonly, copy) NSDictionary<NSString*, id>* infoDictionary;
@end

@interface NSFileHandle : NSObject
@property(class, readonly) NSFileHandle* fileHandleWithNullDevice;
- (NSData*)readDataToEndOfFile;
@end

@interface NSPipe : NSObject
+ (NSPipe*)pipe;
@property(readonly) NSFileHandle* fileHandleForReading;
@end

@interface NSTask : NSObject
@property(copy) NSURL* executableURL;
@property(copy) NSArray<NSString*>* arguments;
@property(strong) id standardInput;
@property(strong) id standardOutput;
@property(strong) id standardError;
@property(readonly) int terminationStatus;
- (BOOL)launchAndReturnError:(NSError**)error;
- (void)waitUntilExit;
@end

typedef NSUInteger NSPropertyListReadOptions;
enum : NSPropertyListReadOptions { NSPropertyListImmutable = 0 };

@interface NSPropertyListSerialization : NSObject
+ (id)propertyListWithData:(NSData*)data
                   options:(NSPropertyListReadOptions)options
                    format:(NSUInteger*)format
                     error:(NSError**)error;
@end
