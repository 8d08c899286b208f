// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SystemSound.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// What the suite needs around a sound port: nothing. Whether a sound is heard, and whether a sound server that hangs
/// holds the program up, is tried on a desktop with a sound server.
template <class Rig>
concept SystemSoundRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.sounds() } -> std::same_as<SystemSound&>;
};

template <SystemSoundRig Rig>
class SystemSoundContract : public testing::Test {
protected:
    /// Plays the sound many times over, and says whether the main loop got a turn meanwhile.
    bool givesTheLoopATurn(const QString& name) {
        bool hasTurned = false;
        QObject context;
        QTimer::singleShot(0, &context, [&hasTurned] { hasTurned = true; });
        for (int i = 0; i < 20; ++i) {
            rig.sounds().play(name);
        }
        return hasTurned;
    }

    Rig rig;
};

TYPED_TEST_SUITE_P(SystemSoundContract);

TYPED_TEST_P(SystemSoundContract, PlayingReturnsBeforeTheLoopTurns) {
    EXPECT_FALSE(this->givesTheLoopATurn(QStringLiteral("Tink")));
}

TYPED_TEST_P(SystemSoundContract, SoDoesPlayingAnUnknownSound) {
    EXPECT_FALSE(this->givesTheLoopATurn(QStringLiteral("No such sound")));
    EXPECT_FALSE(this->givesTheLoopATurn(QString()));
}

REGISTER_TYPED_TEST_SUITE_P(SystemSoundContract, PlayingReturnsBeforeTheLoopTurns, SoDoesPlayingAnUnknownSound);

} // namespace zamber
