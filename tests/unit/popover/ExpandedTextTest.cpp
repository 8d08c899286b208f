// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ExpandedText.h"

#include <gtest/gtest.h>

namespace zamber::popover {

namespace {
constexpr int TEXT_WIDTH = 270;
} // namespace

TEST(ExpandedText, OneThatFitsDoesNotScroll) {
    ExpandedText text("one line\nand another one", TEXT_WIDTH);
    EXPECT_LT(text.shownHeight(), ExpandedText::MOST_SHOWN_HEIGHT);
    EXPECT_FALSE(text.scrollBy(10));
    EXPECT_FALSE(text.scrollBy(-10));
    EXPECT_EQ(text.scrollOffset(), 0);
}

TEST(ExpandedText, OneThatDoesNotFitScrollsToItsEndAndBack) {
    ExpandedText text(QByteArray("line\n").repeated(30), TEXT_WIDTH);
    EXPECT_EQ(text.shownHeight(), ExpandedText::MOST_SHOWN_HEIGHT);
    EXPECT_TRUE(text.scrollBy(50));
    EXPECT_EQ(text.scrollOffset(), 50);
    EXPECT_TRUE(text.scrollBy(10'000));
    EXPECT_EQ(text.scrollOffset(), text.wholeHeight() - ExpandedText::MOST_SHOWN_HEIGHT);
    EXPECT_FALSE(text.scrollBy(1));
    EXPECT_TRUE(text.scrollBy(-10'000));
    EXPECT_EQ(text.scrollOffset(), 0);
    EXPECT_FALSE(text.scrollBy(-1));
}

TEST(ExpandedText, AnEndlessOneIsNotLaidOutToItsEnd) {
    ExpandedText text(QByteArray(50'000'000, 'x'), TEXT_WIDTH);
    EXPECT_TRUE(text.scrollBy(56));
    EXPECT_GT(text.wholeHeight(), 1'000'000);
}

} // namespace zamber::popover
