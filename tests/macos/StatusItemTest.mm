// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: the status item and its menu.

#include "platform/macos/MacStatusItem.h"
#include "tests/macos/System.h"

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

#include <vector>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;

MenuItem line(const char* title, const char* key, const char* selector, std::function<void()> action) {
    return {.title = QString::fromUtf8(title),
            .keyEquivalent = QString::fromUtf8(key),
            .action = std::move(action),
            .selector = QString::fromUtf8(selector)};
}

} // namespace

TEST(Recorded, TheStatusItemIsASquareThatSendsAnActionAtBothButtonsReleases) {
    macos::MacStatusItem item;
    EXPECT_THAT(callsDuring([&] { item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber")); }),
                ElementsAre("NSStatusBar statusItemWithLength: -2",
                            "NSImage imageWithSystemSymbolName: doc.on.clipboard accessibilityDescription: Zamber",
                            "NSStatusBarButton sendActionOn: 0x14"));
    const auto anchor = item.button();
    ASSERT_TRUE(anchor);
    EXPECT_EQ(anchor->screenRectangle, QRect(1002, 1, 24, 22)); // at the top, as Qt counts
    auto* const button = (__bridge NSStatusBarButton*)reinterpret_cast<void*>(anchor->handle);
    EXPECT_NE(button.image, nil);
    EXPECT_EQ(button.target, nil);
}

TEST(Recorded, AClickIsToldByItsButton) {
    macos::MacStatusItem item;
    std::vector<MouseButton> clicks;
    item.setClickedHandler([&clicks](MouseButton button) { clicks.push_back(button); });
    item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
    EXPECT_THAT(callsDuring("NSApplication", [] { system::clickStatusItem(system::Click::Left); }),
                ElementsAre("NSApplication sendAction: togglePopover to: nil from: a sender"));
    system::clickStatusItem(system::Click::Right);
    system::clickStatusItem(system::Click::Left);
    EXPECT_THAT(clicks, ElementsAre(MouseButton::Left, MouseButton::Right, MouseButton::Left));
}

TEST(Recorded, WithoutAButtonThereIsNoPlace) {
    macos::MacStatusItem item;
    item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
    system::setStatusItemHasButton(false);
    EXPECT_FALSE(item.button());
    system::setStatusItemHasButton(true);
}

TEST(Recorded, TheMenuIsAttachedForOneClickAndItsLinesAreChosenAgainAndAgain) {
    macos::MacStatusItem item;
    int toggles = 0;
    item.setClickedHandler([&toggles](MouseButton) { ++toggles; });
    item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
    std::string chosen;
    const QList<MenuItem> menu{line("Settings…", ",", "openSettings", [&] { chosen += 's'; }), MenuItem{},
                               line("  Launch at Login", "", "toggleLaunchAtLogin", [&] { chosen += 'l'; }), MenuItem{},
                               line("Quit Zamber", "q", "quitApp", [&] { chosen += 'q'; })};
    system::setMenuChoice([](const auto&) { return 2; });
    EXPECT_THAT(
        callsDuring("NS", [&] { item.showMenuOnce(menu); }),
        ElementsAre("NSStatusItem setMenu: one", "NSStatusBarButton performClick: nil menu: attached",
                    "NSMenu item 'Settings…' action: openSettings target: nil keyEquivalent: ','", "NSMenu separator",
                    "NSMenu item '  Launch at Login' action: toggleLaunchAtLogin target: nil keyEquivalent: ''",
                    "NSMenu separator", "NSMenu item 'Quit Zamber' action: quitApp target: nil keyEquivalent: 'q'",
                    "NSApplication sendAction: toggleLaunchAtLogin to: nil from: a sender",
                    "NSStatusItem setMenu: nil"));
    for (const int index : {0, 4, 0}) {
        system::setMenuChoice([index](const auto&) { return index; });
        item.showMenuOnce(menu);
    }
    EXPECT_EQ(chosen, "lsqs");
    EXPECT_EQ(toggles, 0);
    system::clickStatusItem(system::Click::Left);
    EXPECT_EQ(toggles, 1);
}

TEST(Recorded, AnItemThatGoesIsTakenOutOfTheBar) {
    EXPECT_THAT(callsDuring("NSStatusBar ",
                            [] {
                                macos::MacStatusItem item;
                                item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
                            }),
                ElementsAre("NSStatusBar statusItemWithLength: -2", "NSStatusBar removeStatusItem:"));
}

} // namespace zamber
