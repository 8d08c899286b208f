// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPopover.h"

#include "platform/macos/Retained.h"

#include <QWidget>

#import <AppKit/AppKit.h>

/// Hides the widget when its popover has closed, by itself or not: the widget does not notice.
@interface ZamberPopoverDelegate : NSObject <NSPopoverDelegate>
@property(nonatomic, assign) QWidget* content;
@end

@implementation ZamberPopoverDelegate
- (void)popoverDidClose:(NSNotification*)notification {
    self.content->hide();
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

} // namespace

MacPopover::MacPopover()
    : m_popover(retained([NSPopover new]))
    , m_delegate(retained([ZamberPopoverDelegate new])) {
    get(m_popover).behavior = NSPopoverBehaviorTransient;
    get(m_popover).delegate = borrowed<ZamberPopoverDelegate>(m_delegate);
}

MacPopover::~MacPopover() {
    get(m_popover).delegate = nil;
    [released<NSPopover>(m_popover) close];
    released<ZamberPopoverDelegate>(m_delegate);
}

void MacPopover::setContent(ContentMaker makeContent) {
    m_content = makeContent();
    borrowed<ZamberPopoverDelegate>(m_delegate).content = m_content;
    NSViewController* const controller = [NSViewController new];
    controller.view = (__bridge NSView*)reinterpret_cast<void*>(m_content->winId());
    get(m_popover).contentViewController = controller;
    // The controller's view has just given the popover its own size.
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
    // Not before the popover has taken the widget's view: on its own it would come with a window of its own.
    m_content->show();
    m_content->activateWindow();
}

void MacPopover::performClose() {
    [get(m_popover) performClose:nil];
}

bool MacPopover::isShown() const {
    return get(m_popover).shown;
}

} // namespace zamber::macos
