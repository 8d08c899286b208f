// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alert.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// The user of the suite: `press` decides which button of the next alert is pressed, `closeWindow` that it is closed
/// without one.
template <class Rig>
concept AlertRig = std::default_initializable<Rig> && requires(Rig rig, int button) {
    { rig.alert() } -> std::same_as<Alert&>;
    rig.press(button);
    rig.closeWindow();
};

template <AlertRig Rig>
class AlertContract : public testing::Test {
protected:
    Rig rig;

    static AlertContent question() {
        return {.message = QStringLiteral("Eat?"),
                .informativeText = QStringLiteral("There is <b>cake</b> & tea."),
                .buttons = {QStringLiteral("Yes & Thanks"), QStringLiteral("Just Tea"), QStringLiteral("No")}};
    }
};

TYPED_TEST_SUITE_P(AlertContract);

TYPED_TEST_P(AlertContract, TellsWhichButtonWasPressed) {
    for (const int button : {0, 1, 2}) {
        this->rig.press(button);
        EXPECT_EQ(this->rig.alert().run(this->question()), button);
    }
}

TYPED_TEST_P(AlertContract, ClosingItIsTheLastButton) {
    this->rig.closeWindow();
    EXPECT_EQ(this->rig.alert().run(this->question()), 2);
}

TYPED_TEST_P(AlertContract, OneWithoutButtonsHasOne) {
    this->rig.press(0);
    EXPECT_EQ(this->rig.alert().run({.style = AlertStyle::Warning, .message = QStringLiteral("No cake")}), 0);
}

REGISTER_TYPED_TEST_SUITE_P(AlertContract, TellsWhichButtonWasPressed, ClosingItIsTheLastButton,
                            OneWithoutButtonsHasOne);

} // namespace zamber
