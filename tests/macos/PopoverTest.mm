// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPopover.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"

#include <QWidget>

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

namespace zamber {

namespace {

using system::callsDuring;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using namespace std::chrono_literals;

constexpr auto LONGER_THAN_THE_FADE = 3 * std::chrono::milliseconds(system::FADE_MILLISECONDS);

class MacPopoverOnScreen : public testing::Test {
protected:
    void SetUp() override {
        button = [[NSView alloc] initWithFrame:NSMakeRect(4, 2, 24, 22)];
        [bar.contentView addSubview:button];
        popover.setContentSize({440, 420});
        popover.setContent([this] { return &content; });
    }

    void show() { popover.show({.screenRectangle = {}, .handle = handle()}, PopoverEdge::MinY); }
    std::uintptr_t handle() const { return reinterpret_cast<std::uintptr_t>((__bridge void*)button); }
    NSView* qtView() const { return (__bridge NSView*)reinterpret_cast<void*>(content.winId()); }

    NSWindow* bar = [[NSWindow alloc] initWithContentRect:NSMakeRect(300, 600, 32, 26)
                                                styleMask:NSWindowStyleMaskBorderless
                                                  backing:NSBackingStoreBuffered
                                                    defer:NO];
    NSView* button = nil;
    QWidget content;
    macos::MacPopover popover;
};

} // namespace

TEST_F(MacPopoverOnScreen, HangsBelowTheWholeButtonAndShowsItsContentInItsOwnWindow) {
    EXPECT_THAT(callsDuring([this] { show(); }), ElementsAre("NSPopover showRelativeToRect: 0,0 24x22 preferredEdge: 1",
                                                             "Qt shows QWidget in the window around it"));
    EXPECT_TRUE(popover.isShown());
    EXPECT_TRUE(content.isVisible());
    EXPECT_THAT(callsDuring("NSPopover",
                            [this] { popover.show({.screenRectangle = {}, .handle = handle()}, PopoverEdge::MaxY); }),
                ElementsAre("NSPopover showRelativeToRect: 0,0 24x22 preferredEdge: 3"));
}

TEST_F(MacPopoverOnScreen, ClosesWithoutASenderAndHidesItsContentWhenItHasFaded) {
    show();
    EXPECT_THAT(callsDuring([this] { popover.performClose(); }), ElementsAre("NSPopover performClose: nil"));
    EXPECT_FALSE(popover.isShown());
    EXPECT_TRUE(content.isVisible());
    macos::letPass(LONGER_THAN_THE_FADE);
    EXPECT_FALSE(content.isVisible());
}

TEST_F(MacPopoverOnScreen, ShownAgainDuringTheFadeItKeepsItsContent) {
    show();
    popover.performClose();
    show();
    EXPECT_THAT(callsDuring("NSPopover popoverDidClose:", [] { macos::letPass(LONGER_THAN_THE_FADE); }),
                ElementsAre("NSPopover popoverDidClose:"));
    EXPECT_TRUE(popover.isShown());
    EXPECT_TRUE(content.isVisible());
}

TEST_F(MacPopoverOnScreen, ShownAgainItHasTheKeyboardBack) {
    show();
    QWidget another;
    another.show();
    another.activateWindow();
    ASSERT_TRUE(macos::waitUntil([&] { return another.isActiveWindow(); }));
    show();
    EXPECT_TRUE(macos::waitUntil([&] { return content.isActiveWindow(); }));
}

TEST_F(MacPopoverOnScreen, OneThatGoesWhileItFadesLeavesItsContentAlone) {
    QWidget another;
    {
        macos::MacPopover second;
        second.setContent([&] { return &another; });
        second.show({.screenRectangle = {}, .handle = handle()}, PopoverEdge::MinY);
        second.performClose();
    }
    macos::letPass(LONGER_THAN_THE_FADE);
    EXPECT_TRUE(another.isVisible());
}

TEST_F(MacPopoverOnScreen, IsTransient) {
    show();
    system::pressOutsidePopover();
    EXPECT_FALSE(popover.isShown());
    macos::letPass(LONGER_THAN_THE_FADE);
    EXPECT_FALSE(content.isVisible());
    EXPECT_THAT(callsDuring([] { const macos::MacPopover another; }), ElementsAre("NSPopover setBehavior: 1"));
}

TEST_F(MacPopoverOnScreen, TheContentsViewLiesOnTheMaterialFromEdgeToEdgeAtEachSize) {
    show();
    NSView* const around = qtView().superview;
    ASSERT_TRUE([around isKindOfClass:NSVisualEffectView.class]);
    EXPECT_EQ(static_cast<NSVisualEffectView*>(around).material, 6);     // the popover's
    EXPECT_EQ(static_cast<NSVisualEffectView*>(around).blendingMode, 0); // with what is behind the window
    EXPECT_TRUE(content.testAttribute(Qt::WA_TranslucentBackground));
    for (const QSize size : {QSize(360, 340), QSize(500, 520), QSize(440, 420)}) {
        EXPECT_THAT(callsDuring([&] { popover.setContentSize(size); }),
                    ElementsAre("NSPopover setContentSize: " + std::to_string(size.width()) + " x " +
                                std::to_string(size.height())));
        macos::letPass(20ms);
        EXPECT_EQ(around.frame.origin.x, system::POPOVER_INSET);
        EXPECT_EQ(around.frame.origin.y, system::POPOVER_INSET);
        EXPECT_EQ(around.frame.size.width, size.width());
        EXPECT_EQ(around.frame.size.height, size.height());
        EXPECT_EQ(qtView().frame.origin.x, 0);
        EXPECT_EQ(qtView().frame.origin.y, 0);
        EXPECT_EQ(qtView().frame.size.width, size.width());
        EXPECT_EQ(qtView().frame.size.height, size.height());
        EXPECT_EQ(content.size(), size);
    }
    around.frame = NSMakeRect(system::POPOVER_INSET, system::POPOVER_INSET, 300, 200); // in the midst of an animation
    macos::letPass(20ms);
    EXPECT_EQ(qtView().frame.size.width, 300);
    EXPECT_EQ(qtView().frame.size.height, 200);
}

TEST_F(MacPopoverOnScreen, TheSizeThatWasSetBeforeOutlivesTheControllersOwn) {
    QWidget another;
    macos::MacPopover second;
    EXPECT_THAT(callsDuring("NSPopover set",
                            [&] {
                                second.setContentSize({500, 520});
                                second.setContent([&] { return &another; });
                            }),
                ElementsAre("NSPopover setContentSize: 500 x 520",
                            "NSPopover setContentViewController: its view is a NSVisualEffectView",
                            "NSPopover setContentSize: 500 x 520"));
    EXPECT_EQ(another.size(), QSize(500, 520));
}

TEST_F(MacPopoverOnScreen, AppearancesHaveTheirNames) {
    EXPECT_THAT(callsDuring([this] {
                    popover.setAppearance(PopoverAppearance::Light);
                    popover.setAppearance(PopoverAppearance::Dark);
                    popover.setAppearance(PopoverAppearance::System);
                }),
                ElementsAre("NSPopover setAppearance: NSAppearanceNameAqua",
                            "NSPopover setAppearance: NSAppearanceNameDarkAqua", "NSPopover setAppearance: nil"));
}

TEST_F(MacPopoverOnScreen, ItsMenuIsTheSystemsAndDoesWhatWasChosen) {
    show();
    std::string chosen;
    const auto line = [&chosen](const char* title, char what) {
        return MenuItem{
            .title = QString::fromLatin1(title), .keyEquivalent = {}, .action = [&chosen, what] { chosen += what; }};
    };
    const QList<MenuItem> menu{line("Copy", 'c'), MenuItem{}, line("Pin", 'p'), line("Delete", 'd')};
    system::setMenuChoice([](const auto&) { return 3; });
    EXPECT_THAT(callsDuring("NSMenu", [&] { EXPECT_TRUE(popover.showMenu(menu, QPoint(700, 100))); }),
                ElementsAre("NSMenu popUpMenuPositioningItem: nil atLocation: 700,800 inView: nil",
                            "NSMenu item 'Copy' action: choose: target: one keyEquivalent: ''", "NSMenu separator",
                            "NSMenu item 'Pin' action: choose: target: one keyEquivalent: ''",
                            "NSMenu item 'Delete' action: choose: target: one keyEquivalent: ''"));
    EXPECT_EQ(chosen, "d");
    EXPECT_TRUE(popover.isShown());
    system::setMenuChoice([](const auto&) { return -1; });
    popover.showMenu(menu, QPoint(700, 100));
    system::setMenuChoice([](const auto&) { return 0; });
    popover.showMenu(menu, QPoint(700, 100));
    EXPECT_EQ(chosen, "dc");
}

} // namespace zamber
