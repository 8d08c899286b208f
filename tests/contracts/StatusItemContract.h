// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>
#include <vector>

namespace zamber {

/// What the suite needs around a status item. The rest is the user:
/// - `click`: presses and releases that button over the item; `chooseFirst`: chooses the first line of the menu that is
///   open; `isMenuOpen`;
/// - `waitUntil`: lets the main loop run until the condition holds; false when it gives up.
template <class Rig>
concept StatusItemRig =
    std::default_initializable<Rig> && requires(Rig rig, MouseButton button, std::function<bool()> condition) {
        { rig.item() } -> std::same_as<StatusItem&>;
        rig.click(button);
        rig.chooseFirst();
        { rig.isMenuOpen() } -> std::same_as<bool>;
        { rig.waitUntil(condition) } -> std::same_as<bool>;
    };

template <StatusItemRig Rig>
class StatusItemContract : public testing::Test {
protected:
    StatusItemContract() {
        item.setClickedHandler([this](MouseButton button) {
            clicks.push_back(button);
            if (button == MouseButton::Right) {
                item.showMenuOnce({{.title = QStringLiteral("First"),
                                    .keyEquivalent = {},
                                    .action = [this] { ++chosen; },
                                    .selector = QStringLiteral("chooseFirst")},
                                   {},
                                   {.title = QStringLiteral("Last"),
                                    .keyEquivalent = {},
                                    .action = [] {},
                                    .selector = QStringLiteral("chooseLast")}});
            }
        });
        item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Test"));
    }

    bool isTold(const std::vector<MouseButton>& expected) {
        return rig.waitUntil([&] { return clicks.size() >= expected.size(); }) && clicks == expected;
    }

    Rig rig;
    StatusItem& item = rig.item();
    std::vector<MouseButton> clicks;
    int chosen = 0;
};

TYPED_TEST_SUITE_P(StatusItemContract);

TYPED_TEST_P(StatusItemContract, APopoverAlwaysHasAPlaceToHangFrom) {
    const auto button = this->item.button();
    ASSERT_TRUE(button);
    EXPECT_FALSE(button->screenRectangle.isEmpty());
}

TYPED_TEST_P(StatusItemContract, ALeftClickIsTold) {
    this->rig.click(MouseButton::Left);
    EXPECT_TRUE(this->isTold({MouseButton::Left}));
    EXPECT_FALSE(this->rig.isMenuOpen());
}

TYPED_TEST_P(StatusItemContract, ARightClickShowsTheMenuAndItsActionRuns) {
    this->rig.click(MouseButton::Right);
    ASSERT_TRUE(this->isTold({MouseButton::Right}));
    ASSERT_TRUE(this->rig.waitUntil([this] { return this->rig.isMenuOpen(); }));
    this->rig.chooseFirst();
    EXPECT_TRUE(this->rig.waitUntil([this] { return this->chosen == 1; }));
}

TYPED_TEST_P(StatusItemContract, AfterAMenuTheNextLeftClickIsToldAgain) {
    this->rig.click(MouseButton::Right);
    ASSERT_TRUE(this->rig.waitUntil([this] { return this->rig.isMenuOpen(); }));
    this->rig.chooseFirst();
    ASSERT_TRUE(this->rig.waitUntil([this] { return !this->rig.isMenuOpen(); }));
    this->rig.click(MouseButton::Left);
    EXPECT_TRUE(this->isTold({MouseButton::Right, MouseButton::Left}));
}

REGISTER_TYPED_TEST_SUITE_P(StatusItemContract, APopoverAlwaysHasAPlaceToHangFrom, ALeftClickIsTold,
                            ARightClickShowsTheMenuAndItsActionRuns, AfterAMenuTheNextLeftClickIsToldAgain);

} // namespace zamber
