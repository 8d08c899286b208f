// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayWindowSystem.h"

#include "SwayStandIn.h"

#include "platform/wayland/SwayConnection.h"
#include "tests/fakes/FakeScheduler.h"

#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>

namespace zamber::wayland {

using namespace std::chrono_literals;

namespace {

struct Case {
    const char* name;
    const char* tree;
    bool isFocusTaken;
};

} // namespace

class SwayFocusTest : public testing::TestWithParam<Case> {
protected:
    SwayStandIn m_sway{GetParam().tree};
    FakeScheduler m_scheduler;
    std::unique_ptr<SwayConnection> m_connection = SwayConnection::open();
    SwayWindowSystem m_windows{*m_connection, m_scheduler};
};

TEST_P(SwayFocusTest, IsTakenFromAWindowInFullScreenAlone) {
    QWidget popover(nullptr, Qt::ToolTip); // gets no focus by itself, like a window behind one in full screen
    popover.setWindowTitle(QStringLiteral("Zamber"));
    m_windows.place(popover.winId(), {10, 20, 300, 200});
    popover.show();
    QCoreApplication::processEvents();
    m_scheduler.advance(59ms);
    const std::vector<QByteArray> commands = m_sway.takeCommands();
    EXPECT_FALSE(commands.empty());
    EXPECT_TRUE(
        std::ranges::all_of(commands, [](const QByteArray& command) { return command.contains("move absolute"); }));
    m_scheduler.advance(1ms);
    EXPECT_EQ(m_sway.takeCommands().size(), GetParam().isFocusTaken ? 1U : 0U);
}

TEST_P(SwayFocusTest, IsTakenFromItAloneByAWindowThatIsBroughtToTheFront) {
    QWidget settings(nullptr, Qt::ToolTip);
    settings.setWindowTitle(QStringLiteral("Zamber Settings"));
    settings.show();
    m_windows.bringToFront(settings.winId());
    m_scheduler.advance(59ms);
    EXPECT_TRUE(m_sway.takeCommands().empty());
    m_scheduler.advance(1ms);
    EXPECT_EQ(m_sway.takeCommands().size(), GetParam().isFocusTaken ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(
    , SwayFocusTest,
    testing::Values(Case{"AnotherWindow",
                         R"({"type":"root","nodes":[{"type":"workspace","fullscreen_mode":1,
                 "nodes":[{"type":"con","focused":true,"fullscreen_mode":0}]}]})",
                         false},
                    Case{"TheEmptyDesktop",
                         R"({"type":"root","nodes":[{"type":"workspace","fullscreen_mode":1,"focused":true}]})", false},
                    Case{"AWindowBesideOneInFullScreen",
                         R"({"type":"root","nodes":[
                 {"type":"workspace","fullscreen_mode":1,"nodes":[{"type":"con","fullscreen_mode":1}]},
                 {"type":"workspace","fullscreen_mode":1,"nodes":[{"type":"con","focused":true}]}]})",
                         false},
                    Case{"AWindowInFullScreen",
                         R"({"type":"root","nodes":[{"type":"workspace","fullscreen_mode":1,
                 "nodes":[{"type":"con","focused":true,"fullscreen_mode":1}]}]})",
                         true},
                    Case{"AWindowOverAllScreens",
                         R"({"type":"root","nodes":[{"type":"workspace","fullscreen_mode":1,
                 "nodes":[{"type":"con","focused":true,"fullscreen_mode":2}]}]})",
                         true},
                    Case{"AFloatingWindowInFullScreen",
                         R"({"type":"root","nodes":[{"type":"workspace","fullscreen_mode":1,
                 "floating_nodes":[{"type":"floating_con","focused":true,"fullscreen_mode":1}]}]})",
                         true},
                    Case{"AWindowInAContainerInFullScreen",
                         R"({"type":"root","nodes":[{"type":"workspace","fullscreen_mode":1,"nodes":[
                 {"type":"con","fullscreen_mode":1,"nodes":[{"type":"con","focused":true}]}]}]})",
                         true},
                    Case{"NothingThatCanBeRead", "", false}),
    [](const testing::TestParamInfo<Case>& row) { return row.param.name; });

TEST(SwayWindowSystem, AWindowThatIsNotMappedYetIsMovedAsSoonAsItIs) {
    SwayStandIn sway("{}");
    FakeScheduler scheduler;
    const std::unique_ptr<SwayConnection> connection = SwayConnection::open();
    SwayWindowSystem windows(*connection, scheduler);
    QWidget popover(nullptr, Qt::ToolTip);
    popover.setWindowTitle(QStringLiteral("Zamber"));
    windows.place(popover.winId(), {10, 20, 300, 200});
    popover.show();
    QCoreApplication::processEvents();
    sway.takeCommands();
    sway.refuseCommands(2);
    scheduler.advance(19ms);
    EXPECT_EQ(sway.takeCommands().size(), 2U);
    scheduler.advance(1s);
    EXPECT_EQ(sway.takeCommands().size(), 1U) << "the one that sway has carried out is the last";
}

TEST(SwayWindowSystem, AWindowThatIsNotMappedYetTakesTheFocusFromAFullScreenAsSoonAsItIs) {
    SwayStandIn sway(R"({"type":"root","nodes":[{"type":"workspace","fullscreen_mode":1,
        "nodes":[{"type":"con","focused":true,"fullscreen_mode":1}]}]})");
    FakeScheduler scheduler;
    const std::unique_ptr<SwayConnection> connection = SwayConnection::open();
    SwayWindowSystem windows(*connection, scheduler);
    QWidget settings(nullptr, Qt::ToolTip);
    settings.setWindowTitle(QStringLiteral("Zamber Settings"));
    settings.show();
    windows.bringToFront(settings.winId());
    sway.refuseCommands(2);
    scheduler.advance(79ms);
    EXPECT_EQ(sway.takeCommands().size(), 2U);
    scheduler.advance(1s);
    const std::vector<QByteArray> commands = sway.takeCommands();
    ASSERT_EQ(commands.size(), 1U) << "the one that sway has carried out is the last";
    EXPECT_TRUE(commands.front().contains("Zamber Settings") && commands.front().endsWith(" focus"));
}

} // namespace zamber::wayland
