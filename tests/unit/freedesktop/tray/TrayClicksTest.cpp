// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/TrayClicks.h"

#include "platform/freedesktop/popover/PopoverWindow.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakePointerButtons.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeWindowSystem.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace zamber::freedesktop::tray {

namespace {

using std::chrono::milliseconds;

constexpr QRect ICON(700, 0, 22, 22);
constexpr QPoint ON_THE_ICON(711, 11);
constexpr QPoint ON_ITS_NEIGHBOUR(689, 11); // 22 points to the left: the next icon of a narrow tray
constexpr QPoint FAR_AWAY(20, 550);

enum class Host {
    Embedded, ///< tells of presses and releases itself
    OnBus,    ///< tells of the click when the button has come up, and of nothing else
};
enum class Popover { Closed, Shown };

/// A desktop's hand and tray around the popover.
class TrayClicksTest : public testing::Test {
protected:
    void useHost(Host host) {
        clicks.setEmbeddedIcon([host] { return host == Host::Embedded ? std::optional(ICON) : std::nullopt; });
    }

    void showPopover() { window.show({.screenRectangle = ICON}, PopoverEdge::MinY); }

    void press(Qt::MouseButton button, QPoint place) { buttons.press(button, place); }

    void release(milliseconds held) {
        scheduler.advance(held);
        buttons.release();
    }

    /// The icon's host reports a click, and the program acts on it.
    void tellClick(QPoint pointer) {
        if (!clicks.isToBeActedOn(pointer)) {
            return;
        }
        window.isShown() ? window.performClose() : showPopover();
    }

    /// Another window comes to the front, as the desktop reports it.
    void abandonPopover() {
        Q_EMIT window.abandoned();
        window.performClose();
    }

    /// The icon's host reports a click, and the program acts on it, where nobody tells of presses and of the pointer.
    void tellClickOnWayland() {
        if (clicks.isToBeActedOn(std::nullopt)) {
            window.isShown() ? window.performClose() : showPopover();
        }
    }

    /// A left click on the icon from beginning to end.
    void click(milliseconds held = milliseconds(120)) {
        press(Qt::LeftButton, ON_THE_ICON);
        release(held);
        tellClick(ON_THE_ICON);
    }

    FakeAppearance appearance;
    FakeWindowSystem windowSystem;
    FakePointerButtons buttons;
    FakeScheduler scheduler;
    popover::PopoverWindow window{appearance, windowSystem};
    TrayClicks clicks{window, buttons, scheduler};
};

struct PressCase {
    const char* name;
    Host host;
    Qt::MouseButton button;
    QPoint place;
    Popover after;
};

void PrintTo(const PressCase& press, std::ostream* out) {
    *out << press.name;
}

class PressWhileShown : public TrayClicksTest, public testing::WithParamInterface<PressCase> {};

struct ClickCase {
    const char* name;
    Host host;
    Popover before;
    milliseconds held;
    Popover after;
};

void PrintTo(const ClickCase& click, std::ostream* out) {
    *out << click.name;
}

class ClickOnIcon : public TrayClicksTest, public testing::WithParamInterface<ClickCase> {};

/// A press that closed the popover, and the click that follows.
struct NextClickCase {
    const char* name;
    Qt::MouseButton button;
    QPoint place;
    milliseconds pause; ///< from the first release to the next press, or to the click without one
    bool hasPress;      ///< whether the next click begins with a press; the keyboard's does not
    Popover after;
};

void PrintTo(const NextClickCase& click, std::ostream* out) {
    *out << click.name;
}

class ClickAfterClosingPress : public TrayClicksTest, public testing::WithParamInterface<NextClickCase> {};

} // namespace

TEST_P(PressWhileShown, ClosesItOrIsLeftToTheClick) {
    const PressCase& test = GetParam();
    useHost(test.host);
    showPopover();
    const QPoint place = test.place.isNull() ? window.frameRectangle().center() : test.place;
    press(test.button, place);
    EXPECT_EQ(window.isShown(), test.after == Popover::Shown);
}

INSTANTIATE_TEST_SUITE_P(
    Table, PressWhileShown,
    testing::Values(
        PressCase{"left on the embedded icon", Host::Embedded, Qt::LeftButton, ON_THE_ICON, Popover::Shown},
        PressCase{"right on the embedded icon", Host::Embedded, Qt::RightButton, ON_THE_ICON, Popover::Closed},
        PressCase{"middle on the embedded icon", Host::Embedded, Qt::MiddleButton, ON_THE_ICON, Popover::Closed},
        PressCase{"left beside the embedded icon", Host::Embedded, Qt::LeftButton, ON_ITS_NEIGHBOUR, Popover::Closed},
        PressCase{"left elsewhere", Host::Embedded, Qt::LeftButton, FAR_AWAY, Popover::Closed},
        PressCase{"left inside the popover", Host::Embedded, Qt::LeftButton, {}, Popover::Shown},
        PressCase{"left on the host's icon", Host::OnBus, Qt::LeftButton, ON_THE_ICON, Popover::Closed},
        PressCase{"right on the host's icon", Host::OnBus, Qt::RightButton, ON_THE_ICON, Popover::Closed},
        PressCase{"left elsewhere on the desktop", Host::OnBus, Qt::LeftButton, FAR_AWAY, Popover::Closed},
        PressCase{"right inside the popover", Host::OnBus, Qt::RightButton, {}, Popover::Shown}));

TEST_P(ClickOnIcon, TogglesOnce) {
    const ClickCase& test = GetParam();
    useHost(test.host);
    if (test.before == Popover::Shown) {
        showPopover();
    }
    click(test.held);
    EXPECT_EQ(window.isShown(), test.after == Popover::Shown);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ClickOnIcon,
    testing::Values(
        ClickCase{"embedded, closed", Host::Embedded, Popover::Closed, milliseconds(120), Popover::Shown},
        ClickCase{"embedded, shown", Host::Embedded, Popover::Shown, milliseconds(120), Popover::Closed},
        ClickCase{"embedded, shown, held", Host::Embedded, Popover::Shown, milliseconds(5000), Popover::Closed},
        ClickCase{"on the bus, closed", Host::OnBus, Popover::Closed, milliseconds(120), Popover::Shown},
        ClickCase{"on the bus, shown", Host::OnBus, Popover::Shown, milliseconds(80), Popover::Closed},
        ClickCase{"on the bus, shown, held", Host::OnBus, Popover::Shown, milliseconds(5000), Popover::Closed}));

TEST_P(ClickAfterClosingPress, IsTheSameClickOrAnother) {
    const NextClickCase& test = GetParam();
    useHost(Host::OnBus);
    showPopover();
    press(test.button, test.place);
    ASSERT_FALSE(window.isShown());
    release(milliseconds(120));
    scheduler.advance(test.pause);
    if (test.hasPress) {
        press(Qt::LeftButton, ON_THE_ICON);
        release(milliseconds(80));
    }
    tellClick(ON_THE_ICON);
    EXPECT_EQ(window.isShown(), test.after == Popover::Shown);
}

INSTANTIATE_TEST_SUITE_P(Table, ClickAfterClosingPress,
                         testing::Values(NextClickCase{"the press's own", Qt::LeftButton, ON_THE_ICON, milliseconds(0),
                                                       false, Popover::Closed},
                                         NextClickCase{"the press's own, told late", Qt::LeftButton, ON_THE_ICON,
                                                       milliseconds(700), false, Popover::Closed},
                                         NextClickCase{"the keyboard's, later", Qt::LeftButton, ON_THE_ICON,
                                                       milliseconds(1500), false, Popover::Shown},
                                         NextClickCase{"the keyboard's, after a press far away", Qt::LeftButton,
                                                       FAR_AWAY, milliseconds(100), false, Popover::Shown},
                                         NextClickCase{"after one on the neighbour's icon", Qt::LeftButton,
                                                       ON_ITS_NEIGHBOUR, milliseconds(150), true, Popover::Shown},
                                         NextClickCase{"after one on the neighbour's icon, later", Qt::LeftButton,
                                                       ON_ITS_NEIGHBOUR, milliseconds(1200), true, Popover::Shown},
                                         NextClickCase{"after a menu on the icon", Qt::RightButton, ON_THE_ICON,
                                                       milliseconds(100), true, Popover::Shown},
                                         NextClickCase{"told by a host after its menu", Qt::RightButton, ON_THE_ICON,
                                                       milliseconds(100), false, Popover::Shown}));

TEST_F(TrayClicksTest, OnTheBusClicksToggleInTurnHoweverQuickly) {
    useHost(Host::OnBus);
    for (int round = 0; round < 3; ++round) {
        click(milliseconds(40));
        EXPECT_TRUE(window.isShown());
        click(milliseconds(40));
        EXPECT_FALSE(window.isShown());
    }
}

TEST_F(TrayClicksTest, APressThatComesAfterItsClickIsStillThatClicks) {
    useHost(Host::OnBus);
    buttons.isLate = true;
    showPopover();
    click();
    EXPECT_FALSE(window.isShown());
    click();
    EXPECT_TRUE(window.isShown());
}

TEST_F(TrayClicksTest, AHostThatActsAtThePressTogglesAsWell) {
    useHost(Host::OnBus);
    for (const bool isShown : {true, false, true, false}) {
        press(Qt::LeftButton, ON_THE_ICON);
        tellClick(ON_THE_ICON);
        EXPECT_EQ(window.isShown(), isShown);
        release(milliseconds(120));
        EXPECT_EQ(window.isShown(), isShown);
    }
}

TEST_F(TrayClicksTest, WhatIsOpenedAnotherWayInBetweenIsClosedByTheClick) {
    useHost(Host::OnBus);
    showPopover();
    press(Qt::LeftButton, ON_THE_ICON);
    showPopover(); // by the hot key, while the button is down
    release(milliseconds(120));
    tellClick(ON_THE_ICON);
    EXPECT_FALSE(window.isShown());
}

TEST_F(TrayClicksTest, OnWaylandClicksToggleInTurnHoweverQuickly) {
    for (const bool isShown : {true, false, true, false}) {
        tellClickOnWayland();
        EXPECT_EQ(window.isShown(), isShown);
    }
}

TEST_F(TrayClicksTest, OnWaylandAClickWhosePressHasTakenTheFocusDoesNotOpenItAgain) {
    showPopover();
    abandonPopover();
    scheduler.advance(milliseconds(400)); // the button is held
    tellClickOnWayland();
    EXPECT_FALSE(window.isShown());
    tellClickOnWayland();
    EXPECT_TRUE(window.isShown()) << "the next click is another one";
}

TEST_F(TrayClicksTest, OnWaylandAClickLongAfterAnotherWindowCameOpensIt) {
    showPopover();
    abandonPopover();
    scheduler.advance(milliseconds(700));
    tellClickOnWayland();
    EXPECT_TRUE(window.isShown());
}

TEST_F(TrayClicksTest, OnWaylandAClickAfterEscapeOpensIt) {
    showPopover();
    window.performClose();
    tellClickOnWayland();
    EXPECT_TRUE(window.isShown());
}

TEST_F(TrayClicksTest, TheMenuTakesThePlaceOfThePopover) {
    showPopover();
    clicks.closePopoverForMenu();
    EXPECT_FALSE(window.isShown());
}

TEST_F(TrayClicksTest, TheDesktopIsWatchedOnlyAsLongAsItMatters) {
    useHost(Host::OnBus);
    EXPECT_FALSE(buttons.isListening);
    showPopover();
    EXPECT_TRUE(buttons.isListening);
    window.performClose();
    EXPECT_FALSE(buttons.isListening);

    showPopover();
    press(Qt::LeftButton, FAR_AWAY);
    EXPECT_TRUE(buttons.isListening) << "the next press begins another click";
    release(milliseconds(80));
    scheduler.advance(milliseconds(2000));
    EXPECT_FALSE(buttons.isListening);

    showPopover();
    press(Qt::LeftButton, FAR_AWAY);
    press(Qt::LeftButton, FAR_AWAY);
    EXPECT_FALSE(buttons.isListening);
    EXPECT_EQ(scheduler.pendingTimers(), 0U);
}

} // namespace zamber::freedesktop::tray
