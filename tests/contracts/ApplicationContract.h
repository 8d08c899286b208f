// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>

namespace zamber {

/// What the suite needs around an application object:
/// - `respondTo`: a part of the program answers to the action of that name; `observe`: one hears of notifications;
/// - `run`: runs the main loop, calling the function in its first turn, until the application ends; false when it
///   does not.
template <class Rig>
concept ApplicationRig =
    std::default_initializable<Rig> && requires(Rig rig, const QString& name, std::function<void()> first) {
        { rig.application() } -> std::same_as<Application&>;
        rig.respondTo(name, first);
        rig.observe(name, first);
        { rig.run(first) } -> std::same_as<bool>;
    };

template <ApplicationRig Rig>
class ApplicationContract : public testing::Test {
protected:
    Rig rig;
};

TYPED_TEST_SUITE_P(ApplicationContract);

TYPED_TEST_P(ApplicationContract, TerminateEndsTheMainLoop) {
    Application& application = this->rig.application();
    application.setAccessoryPolicy();
    EXPECT_TRUE(this->rig.run([&application] { application.terminate(); }));
}

TYPED_TEST_P(ApplicationContract, ActivatingWithoutAWindowDoesNoHarm) {
    Application& application = this->rig.application();
    EXPECT_TRUE(this->rig.run([&application] {
        application.activate();
        application.terminate();
    }));
}

TYPED_TEST_P(ApplicationContract, AnActionGoesToWhoeverAnswersToIt) {
    int answers = 0;
    this->rig.respondTo(QStringLiteral("first:"), [&answers] { ++answers; });
    EXPECT_TRUE(this->rig.application().sendAction(QStringLiteral("first:")));
    EXPECT_EQ(answers, 1);
    EXPECT_FALSE(this->rig.application().sendAction(QStringLiteral("second:")));
    EXPECT_FALSE(this->rig.application().sendAction(QStringLiteral("first")));
    EXPECT_EQ(answers, 1);
}

TYPED_TEST_P(ApplicationContract, ANotificationGoesToAllWhoObserveItAndToNobodyElse) {
    int heard = 0;
    this->rig.application().postNotification(QStringLiteral("news"));
    this->rig.observe(QStringLiteral("news"), [&heard] { ++heard; });
    this->rig.observe(QStringLiteral("news"), [&heard] { ++heard; });
    this->rig.observe(QStringLiteral("other"), [&heard] { heard += 100; });
    this->rig.application().postNotification(QStringLiteral("news"));
    EXPECT_EQ(heard, 2);
}

REGISTER_TYPED_TEST_SUITE_P(ApplicationContract, TerminateEndsTheMainLoop, ActivatingWithoutAWindowDoesNoHarm,
                            AnActionGoesToWhoeverAnswersToIt, ANotificationGoesToAllWhoObserveItAndToNobodyElse);

} // namespace zamber
