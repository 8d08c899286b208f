// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/OwnFocus.h"

#include "platform/wayland/Toplevels.h"
#include "tests/fakes/FakeScheduler.h"

#include <QSet>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <utility>

namespace zamber::wayland {

using namespace std::chrono_literals;

namespace {

/// Windows by their handles.
class FakeToplevels final : public Toplevels {
public:
    std::optional<Toplevel> active() const override { return m_active; }
    bool isOpen(std::uint64_t handle) const override { return !m_closed.contains(handle); }
    void activate(std::uint64_t /*handle*/) override {}
    void catchUp() override {
        std::exchange(unheard, [] {})();
    }

    void setActive(std::optional<Toplevel> toplevel) {
        m_active = std::move(toplevel);
        Q_EMIT activeChanged();
    }
    void close(std::uint64_t handle) { m_closed.insert(handle); }

    std::function<void()> unheard = [] {}; ///< what has been told already, and is on its way

private:
    std::optional<Toplevel> m_active;
    QSet<std::uint64_t> m_closed;
};

} // namespace

class OwnFocusTest : public testing::Test {
protected:
    OwnFocusTest() {
        QObject::connect(&m_focus, &OwnFocus::lost, &m_focus, [this] { ++m_losses; });
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
    OwnFocus m_focus{m_toplevels, OURS, m_scheduler};
    int m_losses = 0;
};

TEST_F(OwnFocusTest, ALossIsToldOnceWhereverTheFocusGoes) {
    setActive(m_popover);
    setActive(std::nullopt);
    EXPECT_EQ(m_losses, 1);
    setActive(m_editor);
    EXPECT_EQ(m_losses, 1);
    setActive(m_popover);
    setActive(m_editor);
    EXPECT_EQ(m_losses, 2);
}

TEST_F(OwnFocusTest, NoLossAmongOtherProgramsNorAmongOurWindows) {
    setActive(m_editor);
    setActive(std::nullopt);
    setActive(m_settings);
    setActive(m_popover);
    EXPECT_EQ(m_losses, 0);
}

TEST_F(OwnFocusTest, AWindowThatIsClosedIsNoLoss) {
    setActive(m_popover);
    m_toplevels.setActive(m_editor);
    m_toplevels.close(m_popover.handle); // told of in the same turn of the loop
    m_scheduler.advance(0ms);
    EXPECT_EQ(m_losses, 0);
    setActive(std::nullopt);
    EXPECT_EQ(m_losses, 0);
}

TEST_F(OwnFocusTest, NeitherIsOneWhoseEndIsToldLaterThanThatItHasLostTheFocus) {
    setActive(m_popover);
    m_toplevels.unheard = [this] { m_toplevels.close(m_popover.handle); };
    setActive(m_editor);
    EXPECT_EQ(m_losses, 0);
}

TEST_F(OwnFocusTest, NeitherIsOneAfterWhichAnotherOfOursHasTheFocus) {
    setActive(m_settings);
    m_toplevels.unheard = [this] { m_toplevels.setActive(m_popover); };
    setActive(m_editor);
    EXPECT_EQ(m_losses, 0);
    setActive(m_editor);
    EXPECT_EQ(m_losses, 1);
}

TEST_F(OwnFocusTest, NeitherIsOneOfAWindowThatWasThereBeforeTheOneThatIsWatched) {
    setActive(m_settings);
    m_toplevels.setActive(m_editor);
    m_focus.startOver(); // the popover has been shown, and has not got the focus yet
    m_scheduler.advance(0ms);
    EXPECT_EQ(m_losses, 0);
    setActive(m_popover);
    setActive(m_editor);
    EXPECT_EQ(m_losses, 1);
}

TEST_F(OwnFocusTest, NeitherIsOneThatHasTheFocusAgainAtOnce) {
    setActive(m_popover);
    m_toplevels.setActive(m_editor);
    setActive(m_popover);
    EXPECT_EQ(m_losses, 0);
}

} // namespace zamber::wayland
