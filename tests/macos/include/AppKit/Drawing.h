// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreGraphics/CoreGraphics.h>

typedef NSString* NSAppearanceName;
extern NSAppearanceName const NSAppearanceNameAqua;
extern NSAppearanceName const NSAppearanceNameDarkAqua;
extern NSString* const NSSystemColorsDidChangeNotification;

@interface NSAppearance : NSObject
@property(readonly, copy) NSAppearanceName name;
+ (NSAppearance*)appearanceNamed:(NSAppearanceName)name;
- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName>*)names;
- (void)performAsCurrentDrawingAppearance:(void (^)(void))block;
@end

@interface NSColorSpace : NSObject
@property(class, readonly) NSColorSpace* sRGBColorSpace;
@end

@interface NSColor : NSObject
@property(class, readonly) NSColor* controlAccentColor;
- (NSColor*)colorUsingColorSpace:(NSColorSpace*)space;
@property(readonly) CGFloat redComponent;
@property(readonly) CGFloat greenComponent;
@property(readonly) CGFloat blueComponent;
@end

typedef CGFloat NSFontWeight;
extern const NSFontWeight NSFontWeightUltraLight, NSFontWeightThin, NSFontWeightLight, NSFontWeightRegular,
    NSFontWeightMedium, NSFontWeightSemibold, NSFontWeightBold, NSFontWeightHeavy, NSFontWeightBlack;

@interface NSImageSymbolConfiguration : NSObject
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight;
@end

@interface NSImage : NSObject
@property NSSize size;
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description;
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration;
- (void)drawInRect:(NSRect)rectangle;
@end

@interface NSGraphicsContext : NSObject
@property(class, strong) NSGraphicsContext* currentContext;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)isFlipped;
@end
