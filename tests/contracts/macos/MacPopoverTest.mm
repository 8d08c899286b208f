// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPopover.h"

#include "MainLoop.h"

#include "tests/contracts/PopoverHostContract.h"

#include <QShowEvent>
#include <QWidget>

#import <AppKit/AppKit.h>

#include <utility>

namespace zamber::macos {

namespace {

/// Gives the popover a view to hang from, and waits until the system's fading is over.
struct AnchoredPopover final : PopoverHost {
    MacPopover real;
    NSWindow* window = [[NSWindow alloc] initWithContentRect:NSMakeRect(300, 600, 24, 24)
                                                   styleMask:NSWindowStyleMaskBorderless
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO];

    AnchoredPopover() {
        window.releasedWhenClosed = NO;
        [window orderFront:nil];
    }
    ~AnchoredPopover() override {
        [NSNotificationCenter.defaultCenter removeObserver:observer];
        [window close];
    }

    void setContent(ContentMaker makeContent) override { real.setContent(std::move(makeContent)); }
    void setContentSize(QSize points) override {
        real.setContentSize(points);
        letPass();
    }
    void setAppearance(PopoverAppearance appearance) override { real.setAppearance(appearance); }
    void show(const Anchor&, PopoverEdge preferredEdge) override {
        real.show(
            {.screenRectangle = {}, .handle = reinterpret_cast<std::uintptr_t>((__bridge void*)window.contentView)},
            preferredEdge);
        letPass();
    }
    void performClose() override {
        closedBy([this] { real.performClose(); });
    }
    bool isShown() const override { return real.isShown(); }
    bool showMenu(const QList<MenuItem>& menu, QPoint place) override { return real.showMenu(menu, place); }

    /// It says that it is closed while its window still fades; when that is over there is a notification.
    void closedBy(const std::function<void()>& close) {
        const bool wasShown = real.isShown();
        const int before = closings;
        close();
        if (wasShown) {
            EXPECT_TRUE(waitUntil([this, before] { return closings > before; }));
        }
    }

private:
    int closings = 0;
    id observer = [NSNotificationCenter.defaultCenter addObserverForName:NSPopoverDidCloseNotification
                                                                  object:nil
                                                                   queue:nil
                                                              usingBlock:^(NSNotification*) {
                                                                ++closings;
                                                              }];
};

struct MacPopoverRig {
    QWidget content;
    AnchoredPopover popover;

    MacPopoverRig() = default;

    PopoverHost& host() { return popover; }
    QSize contentSize() { return content.size(); }
    void giveContent() {
        popover.setContent([this] { return &content; });
    }

    /// A press belongs to the user. To a transient popover it comes to the same when the application is hidden.
    void pressOutside() {
        popover.closedBy([] { [NSApp hide:nil]; });
        [NSApp unhideWithoutActivation];
    }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, PopoverHostContract, MacPopoverRig);

TEST(MacPopover, TheContentIsShownAndHiddenWithIt) {
    MacPopoverRig rig;
    rig.giveContent();
    EXPECT_FALSE(rig.content.isVisible());
    rig.host().show({}, PopoverEdge::MinY);
    EXPECT_TRUE(rig.content.isVisible());
    rig.host().performClose();
    EXPECT_FALSE(rig.content.isVisible());
    rig.host().show({}, PopoverEdge::MinY);
    EXPECT_TRUE(rig.content.isVisible());
}

} // namespace zamber::macos
