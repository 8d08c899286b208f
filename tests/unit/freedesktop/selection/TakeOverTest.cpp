// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/TakeOver.h"

#include <gtest/gtest.h>

namespace zamber::freedesktop::selection {

namespace {

using namespace std::chrono_literals;
using enum TakeOver::Verdict;

const SelectionContent WORDS{.text = "words", .image = {}, .files = {}};

struct LossRow {
    const char* name;
    OwnerLoss loss;
    ContentSource source;
    SelectionContent content;
    bool hasOwnerAgain;
    bool isFormerOwnerRunning;
    std::chrono::milliseconds sinceLoss;
    TakeOver::Verdict verdict;
};

void PrintTo(const LossRow& row, std::ostream* out) {
    *out << row.name;
}

class TakeOverTest : public testing::TestWithParam<LossRow> {};

TEST_P(TakeOverTest, Decides) {
    const LossRow& row = GetParam();
    TakeOver takeOver;
    const bool mayBe = takeOver.begin(row.loss, row.source, row.content);
    EXPECT_EQ(mayBe, row.source == ContentSource::Foreign && !row.content.isEmpty());
    EXPECT_EQ(takeOver.verdict(row.hasOwnerAgain, row.isFormerOwnerRunning, row.sinceLoss), row.verdict);
}

constexpr auto FOREIGN = ContentSource::Foreign;

INSTANTIATE_TEST_SUITE_P(
    Rows, TakeOverTest,
    testing::Values(
        LossRow{"its program has ended", OwnerLoss::Gone, FOREIGN, WORDS, false, false, 150ms, Now},
        LossRow{"its window has gone", OwnerLoss::Gone, FOREIGN, WORDS, false, true, 150ms, Now},
        LossRow{"somebody else has copied", OwnerLoss::Gone, FOREIGN, WORDS, true, false, 150ms, Never},
        LossRow{"nothing was there", OwnerLoss::Gone, FOREIGN, {}, false, false, 150ms, Never},
        LossRow{"a secret", OwnerLoss::Gone, ContentSource::Secret, {}, false, false, 150ms, Never},
        LossRow{"not read yet", OwnerLoss::Gone, ContentSource::Nothing, WORDS, false, false, 150ms, Never},
        LossRow{"our own", OwnerLoss::Gone, ContentSource::Ourselves, WORDS, false, false, 150ms, Never},
        LossRow{"cleared by a program that runs", OwnerLoss::Cleared, FOREIGN, WORDS, false, true, 150ms, NotYet},
        LossRow{"cleared by a program that runs on", OwnerLoss::Cleared, FOREIGN, WORDS, false, true, 2000ms, Never},
        LossRow{"cleared by a program that then ended", OwnerLoss::Cleared, FOREIGN, WORDS, false, false, 300ms, Now},
        LossRow{"cleared, and copied by another", OwnerLoss::Cleared, FOREIGN, WORDS, true, false, 300ms, Never},
        LossRow{
            "a secret that was cleared", OwnerLoss::Cleared, ContentSource::Secret, {}, false, false, 300ms, Never}));

TEST(TakeOver, AWindowThatGoesJustBeforeTheClipboardIsClearedIsOneStory) {
    TakeOver takeOver;
    takeOver.begin(OwnerLoss::Gone, FOREIGN, WORDS);
    EXPECT_TRUE(takeOver.begin(OwnerLoss::Cleared, FOREIGN, WORDS));
    EXPECT_EQ(takeOver.verdict(false, true, 150ms), NotYet);
    EXPECT_TRUE(takeOver.begin(OwnerLoss::Cleared, FOREIGN, {})) << "cleared once more";
    EXPECT_EQ(takeOver.content().text, "words");
    EXPECT_EQ(takeOver.verdict(false, false, 300ms), Now);
}

TEST(TakeOver, WhatHasBeenCalledOffIsOver) {
    TakeOver takeOver;
    takeOver.begin(OwnerLoss::Gone, FOREIGN, WORDS);
    takeOver.cancel();
    EXPECT_EQ(takeOver.verdict(false, false, 150ms), Never);
    EXPECT_FALSE(takeOver.begin(OwnerLoss::Cleared, FOREIGN, {})) << "nothing of the former owner is left";
}

} // namespace

} // namespace zamber::freedesktop::selection
