// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/ClipboardItem.h"

#include <gtest/gtest.h>

namespace zamber::clipboard {

namespace {

const auto HELLO = ClipboardContent::text("hello");

TEST(ClipboardItem, TwoItemsOfTheSameContentAreNotEqual) {
    const ClipboardItem first(HELLO, 1.0);
    const ClipboardItem second(HELLO, 1.0);
    EXPECT_FALSE(first == second);
    EXPECT_FALSE(first.id.isNull());
}

TEST(ClipboardItem, ACopyWithItsPinFlippedIsEqual) {
    const ClipboardItem item(HELLO, 1.0);
    auto copy = item;
    copy.isPinned = !copy.isPinned;
    EXPECT_TRUE(item == copy);
}

TEST(ClipboardItem, HoldsWhatItWasMadeOf) {
    const ClipboardItem item(HELLO, 12.25);
    EXPECT_TRUE(item.content == HELLO);
    EXPECT_EQ(item.timestamp, 12.25);
    EXPECT_FALSE(item.isPinned);
    EXPECT_TRUE(ClipboardItem(HELLO, 12.25, true).isPinned);
}

} // namespace

} // namespace zamber::clipboard
