// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <Foundation/Basics.h>

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

@interface NSString : NSObject <NSCopying>
+ (instancetype)stringWithUTF8String:(const char*)text;
- (instancetype)initWithBytes:(const void*)bytes length:(NSUInteger)length encoding:(NSStringEncoding)encoding;
- (instancetype)initWithCharacters:(const uint16_t*)characters length:(NSUInteger)length;
@property(readonly) NSUInteger length;
@property(readonly) const char* UTF8String __attribute__((objc_returns_inner_pointer));
- (void)getCharacters:(uint16_t*)buffer;
- (NSData*)dataUsingEncoding:(NSStringEncoding)encoding;
- (NSString*)stringByAppendingString:(NSString*)other;
- (BOOL)isEqualToString:(NSString*)other;
- (NSInteger)integerValue;
- (BOOL)boolValue;
@end

@interface NSData : NSObject
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length;
@property(readonly) NSUInteger length;
@property(readonly) const void* bytes __attribute__((objc_returns_inner_pointer));
@end

@interface NSNumber : NSObject
+ (NSNumber*)numberWithInteger:(NSInteger)value;
+ (NSNumber*)numberWithBool:(BOOL)value;
@property(readonly) NSInteger integerValue;
@property(readonly) BOOL boolValue;
@property(readonly, copy) NSString* stringValue;
@end

@interface NSArray<Element> : NSObject
+ (instancetype)arrayWithObjects:(const id*)objects count:(NSUInteger)count;
@property(readonly) NSUInteger count;
@property(readonly) Element firstObject;
- (Element)objectAtIndexedSubscript:(NSUInteger)index;
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(__unsafe_unretained id*)buffer
                                    count:(NSUInteger)length;
@end

@interface NSDictionary<Key, Value> : NSObject
+ (instancetype)dictionaryWithObjects:(const id*)objects forKeys:(const id*)keys count:(NSUInteger)count;
@property(readonly) NSUInteger count;
- (Value)objectForKeyedSubscript:(Key)key;
@end

@interface NSError : NSObject
+ (instancetype)errorWithDomain:(NSString*)domain code:(NSInteger)code userInfo:(NSDictionary*)info;
@property(readonly, copy) NSString* localizedDescription;
@end
extern NSString* const NSLocalizedDescriptionKey;

@interface NSUUID : NSObject
@property(class, readonly) NSUUID* UUID;
@property(readonly, copy) NSString* UUIDString;
@end

@interface NSURL : NSObject
+ (NSURL*)fileURLWithPath:(NSString*)path;
+ (NSURL*)URLWithString:(NSString*)text;
@property(readonly, copy) NSString* path;
@property(readonly, copy) NSString* absoluteString;
@property(readonly) const char* fileSystemRepresentation __attribute__((objc_returns_inner_pointer));
@end
