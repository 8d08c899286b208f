// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WebClient.h"
#include "tests/support/Waiting.h"

#include <QUrl>

#include <gtest/gtest.h>

#include <concepts>
#include <memory>
#include <optional>

namespace zamber {

/// What the suite needs around a web client: addresses at which there is a body, nobody, or somebody who is silent.
template <class Rig>
concept WebClientRig = std::default_initializable<Rig> && requires(Rig rig, const QByteArray& body) {
    { rig.client() } -> std::same_as<WebClient&>;
    { rig.addressOf(body) } -> std::same_as<QUrl>;
    { rig.deadAddress() } -> std::same_as<QUrl>;
    { rig.silentAddress() } -> std::same_as<QUrl>;
};

template <WebClientRig Rig>
class WebClientContract : public testing::Test {
protected:
    WebClient::Done note() {
        return [this](const WebClient::Answer& told) {
            ++calls;
            answer = told;
        };
    }

    Rig rig;
    int calls = 0;
    std::optional<WebClient::Answer> answer;
};

TYPED_TEST_SUITE_P(WebClientContract);

TYPED_TEST_P(WebClientContract, AnswersOnceWithTheBodyByteForByteAndNotInTheCall) {
    for (const QByteArray& body : {QByteArray(), QByteArray("a\0b\n\xFF", 5), QByteArray(1'000'000, '\n')}) {
        this->calls = 0;
        const auto request = this->rig.client().get(this->rig.addressOf(body), this->note());
        EXPECT_EQ(this->calls, 0);
        ASSERT_TRUE(waitUntil([this] { return this->calls > 0; }));
        ASSERT_TRUE(this->answer->has_value()) << this->answer->error().toStdString();
        EXPECT_TRUE(**this->answer == body) << body.size();
        letPass(std::chrono::milliseconds(50));
        EXPECT_EQ(this->calls, 1);
    }
}

TYPED_TEST_P(WebClientContract, SaysWhyThereIsNoBody) {
    const auto request = this->rig.client().get(this->rig.deadAddress(), this->note());
    EXPECT_EQ(this->calls, 0);
    ASSERT_TRUE(waitUntil([this] { return this->calls > 0; }));
    ASSERT_FALSE(this->answer->has_value());
    EXPECT_FALSE(this->answer->error().isEmpty());
}

TYPED_TEST_P(WebClientContract, ARequestThatIsDestroyedEndsWithoutAnAnswer) {
    this->rig.client().get(this->rig.addressOf("late"), this->note()).reset();
    auto silent = this->rig.client().get(this->rig.silentAddress(), this->note());
    letPass(std::chrono::milliseconds(200));
    silent.reset();
    letPass(std::chrono::milliseconds(200));
    EXPECT_EQ(this->calls, 0);
}

TYPED_TEST_P(WebClientContract, ARequestMayBeDestroyedInTheCallAndTheNextOneBeMade) {
    const QUrl address = this->rig.addressOf("again");
    std::unique_ptr<WebClient::Request> request;
    request = this->rig.client().get(address, [&](const WebClient::Answer&) {
        request.reset();
        request = this->rig.client().get(address, this->note());
    });
    ASSERT_TRUE(waitUntil([this] { return this->calls > 0; }));
    ASSERT_TRUE(this->answer->has_value()) << this->answer->error().toStdString();
    EXPECT_EQ(**this->answer, "again");
}

REGISTER_TYPED_TEST_SUITE_P(WebClientContract, AnswersOnceWithTheBodyByteForByteAndNotInTheCall, SaysWhyThereIsNoBody,
                            ARequestThatIsDestroyedEndsWithoutAnAnswer,
                            ARequestMayBeDestroyedInTheCallAndTheNextOneBeMade);

} // namespace zamber
