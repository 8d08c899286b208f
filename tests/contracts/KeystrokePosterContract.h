// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeystrokePoster.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>
#include <optional>
#include <vector>

namespace zamber {

/// What the suite needs around a keystroke poster. The rest is the desktop:
/// - `openApplication`: a program opens a window, which comes to the front; the answer is how it is remembered;
/// - `closeApplication`: it quits;
/// - `writeClipboard`: this program writes the clipboard; the answer is the change count;
/// - `pastesReceived`: how often that application has been told to paste;
/// - `waitUntil`: lets the main loop run until the condition holds; false when it gives up.
template <class Rig>
concept KeystrokePosterRig = std::default_initializable<Rig> &&
                             requires(Rig rig, RunningApplication application, std::function<bool()> condition) {
                                 { rig.poster() } -> std::same_as<KeystrokePoster&>;
                                 { rig.openApplication() } -> std::same_as<RunningApplication>;
                                 rig.closeApplication(application);
                                 { rig.writeClipboard() } -> std::same_as<int>;
                                 { rig.pastesReceived(application) } -> std::same_as<int>;
                                 { rig.waitUntil(condition) } -> std::same_as<bool>;
                             };

template <KeystrokePosterRig Rig>
class KeystrokePosterContract : public testing::Test {
protected:
    /// The outcome, or nothing when it is not told once.
    std::optional<PasteOutcome> postAndWait(const Paste& paste) {
        std::vector<PasteOutcome> outcomes;
        poster.postPaste(paste, [&outcomes](PasteOutcome outcome) { outcomes.push_back(outcome); });
        const bool ended = rig.waitUntil([&outcomes] { return !outcomes.empty(); });
        EXPECT_EQ(outcomes.size(), ended ? 1U : 0U);
        return ended ? std::optional(outcomes.front()) : std::nullopt;
    }

    Rig rig;
    KeystrokePoster& poster = rig.poster();
};

TYPED_TEST_SUITE_P(KeystrokePosterContract);

TYPED_TEST_P(KeystrokePosterContract, TheTargetInFrontIsToldToPasteOnce) {
    const RunningApplication editor = this->rig.openApplication();
    const int written = this->rig.writeClipboard();
    EXPECT_EQ(this->postAndWait({.changeCount = written, .target = editor}), PasteOutcome::Posted);
    EXPECT_TRUE(this->rig.waitUntil([&] { return this->rig.pastesReceived(editor) == 1; }));
}

TYPED_TEST_P(KeystrokePosterContract, WithoutATargetWhoeverIsInFrontIsTold) {
    const RunningApplication editor = this->rig.openApplication();
    const int written = this->rig.writeClipboard();
    EXPECT_EQ(this->postAndWait({.changeCount = written, .target = std::nullopt}), PasteOutcome::Posted);
    EXPECT_TRUE(this->rig.waitUntil([&] { return this->rig.pastesReceived(editor) == 1; }));
}

TYPED_TEST_P(KeystrokePosterContract, ATargetThatHasQuitLeavesItToWhoeverIsInFront) {
    const RunningApplication gone = this->rig.openApplication();
    this->rig.closeApplication(gone);
    const RunningApplication editor = this->rig.openApplication();
    const int written = this->rig.writeClipboard();
    EXPECT_EQ(this->postAndWait({.changeCount = written, .target = gone}), PasteOutcome::Posted);
    EXPECT_TRUE(this->rig.waitUntil([&] { return this->rig.pastesReceived(editor) == 1; }));
}

TYPED_TEST_P(KeystrokePosterContract, CallsAreCarriedOutOneAfterTheOther) {
    const RunningApplication editor = this->rig.openApplication();
    const int written = this->rig.writeClipboard();
    std::vector<int> done;
    for (const int call : {1, 2, 3}) {
        this->poster.postPaste({.changeCount = written, .target = editor},
                               [&done, call](PasteOutcome) { done.push_back(call); });
    }
    ASSERT_TRUE(this->rig.waitUntil([&] { return done.size() == 3; }));
    EXPECT_EQ(done, (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(this->rig.waitUntil([&] { return this->rig.pastesReceived(editor) == 3; }));
}

REGISTER_TYPED_TEST_SUITE_P(KeystrokePosterContract, TheTargetInFrontIsToldToPasteOnce,
                            WithoutATargetWhoeverIsInFrontIsTold, ATargetThatHasQuitLeavesItToWhoeverIsInFront,
                            CallsAreCarriedOutOneAfterTheOther);

} // namespace zamber
