// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/Toplevels.h"

#include "platform/wayland/Connection.h"
#include "tests/contracts/wayland/WaylandPartner.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>

namespace zamber::wayland {

namespace {

struct ToplevelsTest : testing::Test {
    std::unique_ptr<Connection> connection = *Connection::open();
    std::unique_ptr<Toplevels> toplevels = Toplevels::create(*connection);
    bool isToldOfChange = false;
    std::optional<WaylandEditor> first;
    std::optional<WaylandEditor> second;

    ToplevelsTest() {
        QObject::connect(toplevels.get(), &Toplevels::activeChanged, toplevels.get(),
                         [this] { isToldOfChange = true; });
    }

    /// The handle of the window that comes to the front; the signal has to tell of it.
    std::uint64_t waitForNewFront(std::uint64_t before) {
        const auto front = [this] { return toplevels->active().value_or(Toplevels::Toplevel()).handle; };
        EXPECT_TRUE(WaylandPartner::waitUntil([&] { return front() != 0 && front() != before; }, 10'000));
        EXPECT_TRUE(std::exchange(isToldOfChange, false));
        return front();
    }
};

TEST_F(ToplevelsTest, TheNewestWindowIsInFrontAndTheOthersStayOpen) {
    first.emplace();
    const std::uint64_t one = waitForNewFront(0);
    second.emplace();
    const std::uint64_t two = waitForNewFront(one);
    EXPECT_EQ(toplevels->active()->applicationId, u"editor");
    EXPECT_TRUE(toplevels->isOpen(one));
    EXPECT_TRUE(toplevels->isOpen(two));
}

TEST_F(ToplevelsTest, AWindowIsBroughtToTheFrontByItsHandle) {
    first.emplace();
    const std::uint64_t one = waitForNewFront(0);
    second.emplace();
    const std::uint64_t two = waitForNewFront(one);
    toplevels->activate(one);
    EXPECT_EQ(waitForNewFront(two), one);
}

TEST_F(ToplevelsTest, AWindowThatHasGoneIsClosedAndTheOthersAreNot) {
    first.emplace();
    const std::uint64_t one = waitForNewFront(0);
    second.emplace();
    const std::uint64_t two = waitForNewFront(one);
    second.reset();
    EXPECT_TRUE(WaylandPartner::waitUntil([&] { return !toplevels->isOpen(two); }));
    EXPECT_TRUE(toplevels->isOpen(one));
    EXPECT_EQ(waitForNewFront(two), one);
}

TEST_F(ToplevelsTest, WindowsThatWereThereBeforeAreKnownAtOnce) {
    first.emplace();
    waitForNewFront(0);
    const auto later = Toplevels::create(*connection);
    ASSERT_TRUE(later->active());
    EXPECT_EQ(later->active()->applicationId, u"editor");
}

} // namespace

} // namespace zamber::wayland
