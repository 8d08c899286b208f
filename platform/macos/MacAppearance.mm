// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacAppearance.h"

#include "platform/macos/Retained.h"

#import <AppKit/AppKit.h>

#include <utility>

/// Observes everything that may change the appearance.
@interface ZamberAppearanceObserver : NSObject
- (instancetype)initWithHandler:(std::function<void()>)handler;
- (void)stop;
@end

@implementation ZamberAppearanceObserver {
    std::function<void()> _handler;
}

- (instancetype)initWithHandler:(std::function<void()>)handler {
    self = [super init];
    _handler = std::move(handler);
    [NSApp addObserver:self forKeyPath:@"effectiveAppearance" options:NSKeyValueObservingOptionNew context:nullptr];
    [NSNotificationCenter.defaultCenter addObserver:self
                                           selector:@selector(mayHaveChanged:)
                                               name:NSSystemColorsDidChangeNotification
                                             object:nil];
    [NSWorkspace.sharedWorkspace.notificationCenter
        addObserver:self
           selector:@selector(mayHaveChanged:)
               name:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
             object:nil];
    return self;
}

- (void)stop {
    [NSApp removeObserver:self forKeyPath:@"effectiveAppearance"];
    [NSNotificationCenter.defaultCenter removeObserver:self];
    [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:self];
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context {
    _handler();
}

- (void)mayHaveChanged:(NSNotification*)notification {
    _handler();
}
@end

namespace zamber::macos {

MacAppearance::MacAppearance()
    : m_observer(retained([[ZamberAppearanceObserver alloc] initWithHandler:[this] { m_changes.take(values()); }])) {}

MacAppearance::~MacAppearance() {
    [released<ZamberAppearanceObserver>(m_observer) stop];
}

bool MacAppearance::isDark() const {
    NSAppearanceName const closest = [NSApp.effectiveAppearance
        bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
    return [closest isEqualToString:NSAppearanceNameDarkAqua];
}

QColor MacAppearance::accentColor() const {
    // The accent colour has a light and a dark variant; the current drawing appearance decides which one is read.
    __block NSColor* color = nil;
    [NSApp.effectiveAppearance performAsCurrentDrawingAppearance:^{
      color = [NSColor.controlAccentColor colorUsingColorSpace:NSColorSpace.sRGBColorSpace];
    }];
    return QColor::fromRgbF(static_cast<float>(color.redComponent), static_cast<float>(color.greenComponent),
                            static_cast<float>(color.blueComponent));
}

bool MacAppearance::reducedMotion() const {
    return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion;
}

void MacAppearance::addChangedHandler(std::function<void()> handler) {
    m_changes.addHandler(std::move(handler));
}

} // namespace zamber::macos
