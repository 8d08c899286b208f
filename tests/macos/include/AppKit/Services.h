// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <Foundation/Foundation.h>

typedef NSString* NSPasteboardType;
extern NSPasteboardType const NSPasteboardTypeTIFF;
extern NSPasteboardType const NSPasteboardTypePNG;
extern NSPasteboardType const NSPasteboardTypeString;

@interface NSPasteboard : NSObject
@property(class, readonly) NSPasteboard* generalPasteboard;
@property(readonly, copy) NSString* name;
@property(readonly) NSInteger changeCount;
+ (NSPasteboard*)pasteboardWithName:(NSString*)name;
+ (NSPasteboard*)pasteboardWithUniqueName;
- (void)releaseGlobally;
- (NSInteger)clearContents;
- (NSData*)dataForType:(NSPasteboardType)type;
- (NSString*)stringForType:(NSPasteboardType)type;
- (BOOL)setData:(NSData*)data forType:(NSPasteboardType)type;
- (BOOL)setString:(NSString*)text forType:(NSPasteboardType)type;
@end

typedef NSUInteger NSApplicationActivationOptions;

@interface NSRunningApplication : NSObject
@property(readonly, copy) NSString* localizedName;
@property(readonly) int processIdentifier;
@property(readonly, getter=isTerminated) BOOL terminated;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
@end

@interface NSWorkspaceOpenConfiguration : NSObject
@property BOOL createsNewApplicationInstance;
+ (instancetype)configuration;
@end

extern NSString* const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification;

@interface NSWorkspace : NSObject
@property(class, readonly) NSWorkspace* sharedWorkspace;
@property(readonly) NSNotificationCenter* notificationCenter;
@property(readonly) NSRunningApplication* frontmostApplication;
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion;
- (BOOL)openURL:(NSURL*)address;
- (void)openApplicationAtURL:(NSURL*)application
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^)(NSRunningApplication* started, NSError* error))handler;
@end

@interface NSSound : NSObject
+ (NSSound*)soundNamed:(NSString*)name;
- (BOOL)play;
@end
