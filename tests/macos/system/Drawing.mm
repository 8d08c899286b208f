// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "KeyValueObserving.h"
#include "Values.h"

#include "tests/macos/System.h"

#import <AppKit/AppKit.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>

// The rules:
// - The application's effective appearance is its own, else the system's, and is observed by key
//   (NSApplication.h, NSAppearance.h).
// - controlAccentColor is resolved in the current drawing appearance, which outside of drawing is whatever it was last
//   (NSColor's documentation; NSAppearance.h, performAsCurrentDrawingAppearance:). It has no components until it was
//   converted to a space that has them (NSColor.h).
// - A name that is no symbol's gives nil (NSImage.h).

using namespace zamber::system;

NSAppearanceName const NSAppearanceNameAqua = @"NSAppearanceNameAqua";
NSAppearanceName const NSAppearanceNameDarkAqua = @"NSAppearanceNameDarkAqua";
NSString* const NSSystemColorsDidChangeNotification = @"NSSystemColorsDidChangeNotification";
NSString* const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification =
    @"NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification";
const CFStringRef kCGColorSpaceSRGB = reinterpret_cast<CFStringRef>(1);

const NSFontWeight NSFontWeightUltraLight = -0.8, NSFontWeightThin = -0.6, NSFontWeightLight = -0.4,
                   NSFontWeightRegular = 0, NSFontWeightMedium = 0.23, NSFontWeightSemibold = 0.3,
                   NSFontWeightBold = 0.4, NSFontWeightHeavy = 0.56, NSFontWeightBlack = 0.62;

namespace {

bool isSystemDark = false;
bool isMotionReduced = false;
bool isDrawingDark = false;
double accent[3] = {0.0, 0.25, 1.0};

constexpr double DARKER = 0.5; ///< the accent's blue in the dark

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

} // namespace

@interface NSAppearance () {
@public
    NSAppearanceName _name;
}
@end

@implementation NSAppearance
+ (NSAppearance*)appearanceNamed:(NSAppearanceName)name {
    NSAppearance* const made = [NSAppearance new];
    made->_name = name;
    return made;
}
- (NSAppearanceName)name {
    return _name;
}
- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName>*)names {
    for (NSAppearanceName const each in names) {
        if ([each isEqualToString:_name]) {
            return each;
        }
    }
    return nil;
}
- (void)performAsCurrentDrawingAppearance:(void (^)(void))block {
    const bool before = isDrawingDark;
    isDrawingDark = [_name isEqualToString:NSAppearanceNameDarkAqua];
    block();
    isDrawingDark = before;
}
@end

static NSAppearance* applicationAppearance = nil;

@implementation NSApplication (Appearance)
- (NSAppearance*)appearance {
    return applicationAppearance;
}
- (void)setAppearance:(NSAppearance*)appearance {
    applicationAppearance = appearance;
    tellObservers(subjectOf((__bridge void*)self), "effectiveAppearance");
}
- (NSAppearance*)effectiveAppearance {
    if (applicationAppearance != nil) {
        return applicationAppearance;
    }
    return [NSAppearance appearanceNamed:isSystemDark ? NSAppearanceNameDarkAqua : NSAppearanceNameAqua];
}
@end

@implementation NSColorSpace
+ (NSColorSpace*)sRGBColorSpace {
    static NSColorSpace* const only = [NSColorSpace new];
    return only;
}
@end

@implementation NSColor {
    bool _isResolved;
    double _components[3];
}
+ (NSColor*)controlAccentColor {
    return [NSColor new];
}
- (NSColor*)colorUsingColorSpace:(NSColorSpace*)space {
    NSColor* const color = [NSColor new];
    std::memcpy(color->_components, accent, sizeof accent);
    color->_components[2] *= isDrawingDark ? DARKER : 1.0;
    color->_isResolved = true;
    return color;
}
- (CGFloat)component:(int)index {
    return _isResolved ? _components[index] : (fail("a colour of the catalogue has no components"), 0.0);
}
- (CGFloat)redComponent {
    return [self component:0];
}
- (CGFloat)greenComponent {
    return [self component:1];
}
- (CGFloat)blueComponent {
    return [self component:2];
}
@end

@implementation NSImageSymbolConfiguration {
@public
    CGFloat _pointSize;
}
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight {
    note("NSImageSymbolConfiguration pointSize: %g weight: %g", pointSize, weight);
    NSImageSymbolConfiguration* const made = [self new];
    made->_pointSize = pointSize;
    return made;
}
@end

struct ZamberColorSpace {};
struct ZamberBitmap {
    unsigned char* data;
    size_t width;
    size_t height;
    size_t bytesPerRow;
};

@implementation NSGraphicsContext {
@public
    CGContextRef _bitmap;
}
static NSGraphicsContext* current = nil;
static NSGraphicsContext* saved = nil;
+ (NSGraphicsContext*)currentContext {
    return current;
}
+ (void)setCurrentContext:(NSGraphicsContext*)context {
    current = context;
}
+ (void)saveGraphicsState {
    saved = current;
}
+ (void)restoreGraphicsState {
    current = saved;
}
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)isFlipped {
    note("NSGraphicsContext flipped: %d", isFlipped);
    NSGraphicsContext* const made = [NSGraphicsContext new];
    made->_bitmap = context;
    return made;
}
@end

@implementation NSImage
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description {
    // Those that the program asks for. Whether macOS 13 has them only a Mac can tell.
    static const std::set<std::string> names{"1.circle.fill",
                                             "2.circle.fill",
                                             "3.circle.fill",
                                             "arrow.down.circle.fill",
                                             "clipboard",
                                             "arrow.up.arrow.down",
                                             "checkmark.circle.fill",
                                             "clipboard.fill",
                                             "clock",
                                             "doc.on.clipboard",
                                             "doc.text",
                                             "gearshape.fill",
                                             "link",
                                             "info.circle.fill",
                                             "keyboard.fill",
                                             "lock.fill",
                                             "lock.shield",
                                             "magnifyingglass",
                                             "photo",
                                             "pin",
                                             "pin.fill",
                                             "pin.slash.fill",
                                             "safari",
                                             "trash",
                                             "xmark",
                                             "xmark.circle.fill"};
    note("NSImage imageWithSystemSymbolName: %s accessibilityDescription: %s", words(name).c_str(),
         words(description).c_str());
    return names.contains(words(name)) ? [NSImage new] : nil;
}
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration {
    NSImage* const made = [NSImage new];
    made.size = NSMakeSize(configuration->_pointSize * 1.25, configuration->_pointSize * 1.2);
    return made;
}
- (void)drawInRect:(NSRect)rectangle {
    ZamberBitmap* const bitmap = NSGraphicsContext.currentContext->_bitmap;
    // Black, with clear corners so that it has a shape.
    for (size_t y = 0; y < bitmap->height; ++y) {
        for (size_t x = 0; x < bitmap->width; ++x) {
            const double right = (static_cast<double>(x) + 0.5 - rectangle.size.width / 2) / rectangle.size.width;
            const double up = (static_cast<double>(y) + 0.5 - rectangle.size.height / 2) / rectangle.size.height;
            if (std::hypot(right, up) < 0.5) {
                bitmap->data[y * bitmap->bytesPerRow + x * 4 + 3] = 255; // the alpha, where little-endian ARGB has it
            }
        }
    }
}
@end

extern "C" {
CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef) {
    return new ZamberColorSpace;
}
void CGColorSpaceRelease(CGColorSpaceRef space) {
    delete space;
}
CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
                                   CGColorSpaceRef, uint32_t bitmapInfo) {
    note("CGBitmapContextCreate bits: %zu info: %#x", bitsPerComponent, bitmapInfo);
    return new ZamberBitmap{static_cast<unsigned char*>(data), width, height, bytesPerRow};
}
void CGContextRelease(CGContextRef context) {
    delete context;
}
}

namespace zamber::system {

void setDark(bool isDark) {
    isSystemDark = isDark;
    tellObservers(subjectOf((__bridge void*)NSApp), "effectiveAppearance");
}

void setReducedMotion(bool isReduced) {
    isMotionReduced = isReduced;
    [NSWorkspace.sharedWorkspace.notificationCenter
        postNotificationName:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
                      object:nil];
}

bool isReducedMotion() {
    return isMotionReduced;
}

void setAccent(double red, double green, double blue) {
    accent[0] = red;
    accent[1] = green;
    accent[2] = blue;
    [NSNotificationCenter.defaultCenter postNotificationName:NSSystemColorsDidChangeNotification object:nil];
}

} // namespace zamber::system
