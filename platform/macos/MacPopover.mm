// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPopover.h"

#include "platform/macos/Retained.h"
#include "platform/macos/SystemCoordinates.h"

#include <QWidget>

#import <AppKit/AppKit.h>

/// Hides the widget when its popover has closed for any reason, since the widget itself does not learn of it.
@interface ZamberPopoverDelegate : NSObject <NSPopoverDelegate>
@property(nonatomic, assign) QWidget* content;
@property(nonatomic, weak) NSPopover* popover;
@end

@implementation ZamberPopoverDelegate
- (void)popoverDidClose:(NSNotification*)notification {
    // This notification comes when the popover has faded out; by then the popover may have been shown again.
    if (!self.popover.shown) {
        self.content->hide();
    }
}
@end

/// Remembers the tag of the menu line that was chosen.
@interface ZamberMenuChoice : NSObject
@property(nonatomic) NSInteger tag;
- (void)choose:(NSMenuItem*)line;
@end

@implementation ZamberMenuChoice
- (void)choose:(NSMenuItem*)line {
    self.tag = line.tag;
}
@end

namespace zamber::macos {

namespace {

NSPopover* get(void* popover) {
    return borrowed<NSPopover>(popover);
}

NSAppearance* named(PopoverAppearance appearance) {
    switch (appearance) {
    case PopoverAppearance::Light:
        return [NSAppearance appearanceNamed:NSAppearanceNameAqua];
    case PopoverAppearance::Dark:
        return [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    case PopoverAppearance::System:
        break;
    }
    return nil;
}

/// The popover's material, with the content's view on it from edge to edge. Qt places its views at the lower left
/// corner of the view around them, in the widget's size; a popover may inset its content and animates its own size.
NSView* viewAround(NSView* content) {
    NSVisualEffectView* const material = [NSVisualEffectView new];
    material.material = NSVisualEffectMaterialPopover;
    material.blendingMode = NSVisualEffectBlendingModeBehindWindow;
    [material addSubview:content];
    content.translatesAutoresizingMaskIntoConstraints = NO;
    [NSLayoutConstraint activateConstraints:@[
        [content.leadingAnchor constraintEqualToAnchor:material.leadingAnchor],
        [content.trailingAnchor constraintEqualToAnchor:material.trailingAnchor],
        [content.topAnchor constraintEqualToAnchor:material.topAnchor],
        [content.bottomAnchor constraintEqualToAnchor:material.bottomAnchor],
    ]];
    return material;
}

} // namespace

MacPopover::MacPopover()
    : m_popover(retained([NSPopover new]))
    , m_delegate(retained([ZamberPopoverDelegate new])) {
    get(m_popover).behavior = NSPopoverBehaviorTransient;
    get(m_popover).delegate = borrowed<ZamberPopoverDelegate>(m_delegate);
    borrowed<ZamberPopoverDelegate>(m_delegate).popover = get(m_popover);
}

MacPopover::~MacPopover() {
    get(m_popover).delegate = nil;
    [released<NSPopover>(m_popover) close];
    released<ZamberPopoverDelegate>(m_delegate);
}

void MacPopover::setContent(ContentMaker makeContent) {
    m_content = makeContent();
    // Before it has a window: the material shines through, where the content would else paint all of itself.
    m_content->setAttribute(Qt::WA_TranslucentBackground);
    m_content->setAttribute(Qt::WA_OpaquePaintEvent, false);
    borrowed<ZamberPopoverDelegate>(m_delegate).content = m_content;
    NSViewController* const controller = [NSViewController new];
    controller.view = viewAround((__bridge NSView*)reinterpret_cast<void*>(m_content->winId()));
    get(m_popover).contentViewController = controller;
    // The popover has just taken the size of the controller's view.
    setContentSize(m_contentSize.isValid() ? m_contentSize : m_content->size());
}

void MacPopover::setContentSize(QSize points) {
    m_contentSize = points;
    get(m_popover).contentSize = NSMakeSize(points.width(), points.height());
    if (m_content != nullptr) {
        m_content->resize(points);
    }
}

void MacPopover::setAppearance(PopoverAppearance appearance) {
    get(m_popover).appearance = named(appearance);
}

void MacPopover::show(const Anchor& anchor, PopoverEdge preferredEdge) {
    NSView* const view = (__bridge NSView*)reinterpret_cast<void*>(anchor.handle);
    [get(m_popover) showRelativeToRect:view.bounds
                                ofView:view
                         preferredEdge:preferredEdge == PopoverEdge::MinY ? NSRectEdgeMinY : NSRectEdgeMaxY];
    // Only after the popover has taken the widget's view: before that, the widget would open a window of its own.
    m_content->show();
    m_content->activateWindow();
}

void MacPopover::performClose() {
    [get(m_popover) performClose:nil];
}

bool MacPopover::isShown() const {
    return get(m_popover).shown;
}

bool MacPopover::showMenu(const QList<MenuItem>& menu, QPoint screenPosition) {
    NSMenu* const systemMenu = [NSMenu new];
    ZamberMenuChoice* const choice = [ZamberMenuChoice new];
    for (qsizetype i = 0; i < menu.size(); ++i) {
        if (menu[i].title.isEmpty()) {
            [systemMenu addItem:NSMenuItem.separatorItem];
            continue;
        }
        NSMenuItem* const line = [systemMenu addItemWithTitle:menu[i].title.toNSString()
                                                       action:@selector(choose:)
                                                keyEquivalent:menu[i].keyEquivalent.toNSString()];
        line.target = choice;
        line.tag = i + 1;
    }
    const QPointF place = toSystemCoordinates(screenPosition, NSHeight(NSScreen.screens.firstObject.frame));
    [systemMenu popUpMenuPositioningItem:nil atLocation:NSMakePoint(place.x(), place.y()) inView:nil];
    if (choice.tag > 0) {
        menu[choice.tag - 1].action();
    }
    return true;
}

} // namespace zamber::macos
