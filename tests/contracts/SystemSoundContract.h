// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SystemSound.h"

#include <gtest/gtest.h>

#include <chrono>
#include <concepts>

namespace zamber {

/// What the suite needs around a sound port: nothing. Whether it can be heard is tried on a desktop with a sound
/// server.
template <class Rig>
concept SystemSoundRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.sounds() } -> std::same_as<SystemSound&>;
};

template <SystemSoundRig Rig>
class SystemSoundContract : public testing::Test {
protected:
    /// How long the call keeps its caller.
    std::chrono::steady_clock::duration timeToPlay(const QString& name) {
        const auto start = std::chrono::steady_clock::now();
        rig.sounds().play(name);
        return std::chrono::steady_clock::now() - start;
    }

    static constexpr std::chrono::milliseconds AT_ONCE{20};

    Rig rig;
};

TYPED_TEST_SUITE_P(SystemSoundContract);

TYPED_TEST_P(SystemSoundContract, PlayingReturnsAtOnceAlsoAgainAndAgain) {
    for (int i = 0; i < 20; ++i) {
        EXPECT_LT(this->timeToPlay(QStringLiteral("Tink")), this->AT_ONCE);
    }
}

TYPED_TEST_P(SystemSoundContract, AnUnknownSoundIsSilence) {
    EXPECT_LT(this->timeToPlay(QStringLiteral("No such sound")), this->AT_ONCE);
    EXPECT_LT(this->timeToPlay(QString()), this->AT_ONCE);
}

REGISTER_TYPED_TEST_SUITE_P(SystemSoundContract, PlayingReturnsAtOnceAlsoAgainAndAgain, AnUnknownSoundIsSilence);

} // namespace zamber
