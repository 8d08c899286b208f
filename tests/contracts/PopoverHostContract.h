// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopoverHost.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// What the suite needs around a popover: a content, its size as it is now, and a press of a button far from the
/// popover.
template <class Rig>
concept PopoverHostRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.host() } -> std::same_as<PopoverHost&>;
    { rig.contentSize() } -> std::same_as<QSize>;
    rig.giveContent();
    rig.pressOutside();
};

template <PopoverHostRig Rig>
class PopoverHostContract : public testing::Test {
protected:
    PopoverHostContract() { rig.giveContent(); }

    Rig rig;
    PopoverHost& host = rig.host();
    Anchor anchor{QRect(300, 0, 24, 24)};
};

TYPED_TEST_SUITE_P(PopoverHostContract);

TYPED_TEST_P(PopoverHostContract, ItIsClosedAtFirst) {
    EXPECT_FALSE(this->host.isShown());
}

TYPED_TEST_P(PopoverHostContract, ItIsShownUntilItIsClosed) {
    this->host.show(this->anchor, PopoverEdge::MinY);
    EXPECT_TRUE(this->host.isShown());
    this->host.performClose();
    EXPECT_FALSE(this->host.isShown());
    this->host.performClose();
    EXPECT_FALSE(this->host.isShown());
}

TYPED_TEST_P(PopoverHostContract, ShowingAgainKeepsItShown) {
    this->host.show(this->anchor, PopoverEdge::MinY);
    this->host.show(Anchor{QRect(500, 0, 24, 24)}, PopoverEdge::MinY);
    EXPECT_TRUE(this->host.isShown());
    this->host.performClose();
    this->host.show(this->anchor, PopoverEdge::MaxY);
    EXPECT_TRUE(this->host.isShown());
}

TYPED_TEST_P(PopoverHostContract, APressOutsideClosesIt) {
    this->host.show(this->anchor, PopoverEdge::MinY);
    this->rig.pressOutside();
    EXPECT_FALSE(this->host.isShown());
    this->rig.pressOutside();
    EXPECT_FALSE(this->host.isShown());
}

TYPED_TEST_P(PopoverHostContract, TheContentHasItsSizeAlsoWhenItChangesWhileShown) {
    this->host.setContentSize({440, 420});
    this->host.show(this->anchor, PopoverEdge::MinY);
    EXPECT_EQ(this->rig.contentSize(), QSize(440, 420));
    this->host.setContentSize({360, 340});
    EXPECT_EQ(this->rig.contentSize(), QSize(360, 340));
}

TYPED_TEST_P(PopoverHostContract, TheAppearanceMayChangeAtAnyTime) {
    this->host.setAppearance(PopoverAppearance::Dark);
    this->host.show(this->anchor, PopoverEdge::MinY);
    this->host.setAppearance(PopoverAppearance::Light);
    this->host.setAppearance(PopoverAppearance::System);
    EXPECT_TRUE(this->host.isShown());
}

REGISTER_TYPED_TEST_SUITE_P(PopoverHostContract, ItIsClosedAtFirst, ItIsShownUntilItIsClosed, ShowingAgainKeepsItShown,
                            APressOutsideClosesIt, TheContentHasItsSizeAlsoWhenItChangesWhileShown,
                            TheAppearanceMayChangeAtAnyTime);

} // namespace zamber
