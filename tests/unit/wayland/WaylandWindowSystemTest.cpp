// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandWindowSystem.h"

#include "SwayStandIn.h"

#include "platform/wayland/SwayConnection.h"
#include "platform/wayland/Toplevels.h"
#include "tests/fakes/FakeScheduler.h"

#include <QGuiApplication>
#include <QSet>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace zamber::wayland {

using namespace std::chrono_literals;

namespace {

struct Case {
    const char* name;
    const char* tree;
    bool isFocusTaken;
};

/// Windows by their handles.
class FakeToplevels final : public Toplevels {
public:
    std::optional<Toplevel> active() const override { return m_active; }
    bool isOpen(std::uint64_t handle) const override { return !m_closed.contains(handle); }
    void activate(std::uint64_t /*handle*/) override {}

    void setActive(std::optional<Toplevel> toplevel) {
        m_active = std::move(toplevel);
        Q_EMIT activeChanged();
    }
    void close(std::uint64_t handle) { m_closed.insert(handle); }

private:
    std::optional<Toplevel> m_active;
    QSet<std::uint64_t> m_closed;
};

} // namespace

class WaylandFocusTest : public testing::TestWithParam<Case> {
protected:
    SwayStandIn m_sway{GetParam().tree};
    FakeScheduler m_scheduler;
    std::unique_ptr<SwayConnection> m_connection = SwayConnection::open();
    WaylandWindowSystem m_windows{m_connection.get(), nullptr, m_scheduler};
};

TEST_P(WaylandFocusTest, IsTakenFromAWindowInFullScreenAlone) {
    ASSERT_NE(m_connection, nullptr);
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

INSTANTIATE_TEST_SUITE_P(
    , WaylandFocusTest,
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

class WaylandLostFocusTest : public testing::Test {
protected:
    WaylandLostFocusTest() {
        QGuiApplication::setDesktopFileName(OURS);
        QObject::connect(&m_windows, &WaylandWindowSystem::focusLost, &m_windows, [this] { ++m_losses; });
    }

    void setActive(std::optional<Toplevels::Toplevel> toplevel) {
        m_toplevels.setActive(std::move(toplevel));
        m_scheduler.advance(0ms);
    }

    static inline const QString OURS = QStringLiteral("app.zamber.Zamber");
    const Toplevels::Toplevel m_popover{.handle = 1, .applicationId = OURS};
    const Toplevels::Toplevel m_settings{.handle = 2, .applicationId = OURS};
    const Toplevels::Toplevel m_editor{.handle = 3, .applicationId = QStringLiteral("editor")};
    FakeToplevels m_toplevels;
    FakeScheduler m_scheduler;
    WaylandWindowSystem m_windows{nullptr, &m_toplevels, m_scheduler};
    int m_losses = 0;
};

TEST_F(WaylandLostFocusTest, IsReportedOnceWhereverTheFocusGoes) {
    setActive(m_popover);
    setActive(std::nullopt);
    EXPECT_EQ(m_losses, 1);
    setActive(m_editor);
    EXPECT_EQ(m_losses, 1);
    setActive(m_popover);
    setActive(m_editor);
    EXPECT_EQ(m_losses, 2);
}

TEST_F(WaylandLostFocusTest, IsNoneAmongOtherProgramsNorAmongOurWindows) {
    setActive(m_editor);
    setActive(std::nullopt);
    setActive(m_settings);
    setActive(m_popover);
    EXPECT_EQ(m_losses, 0);
}

TEST_F(WaylandLostFocusTest, IsNoneWhenTheWindowIsClosed) {
    setActive(m_popover);
    m_toplevels.setActive(m_editor);
    m_toplevels.close(m_popover.handle); // told of in the same turn of the loop
    m_scheduler.advance(0ms);
    EXPECT_EQ(m_losses, 0);
    setActive(std::nullopt);
    EXPECT_EQ(m_losses, 0);
}

TEST_F(WaylandLostFocusTest, IsNoneWhenTheWindowHasItAgainAtOnce) {
    setActive(m_popover);
    m_toplevels.setActive(m_editor);
    setActive(m_popover);
    EXPECT_EQ(m_losses, 0);
}

} // namespace zamber::wayland
