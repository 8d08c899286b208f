// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/HandBoundHotKeys.h"

#include "tests/fakes/FakeHotKeyCenter.h"

#include <gtest/gtest.h>

namespace zamber::wayland {

namespace {

TEST(HandBoundHotKeysTest, TheHintSaysWhichKeyItIsAndWhatToBindWhereItDoesNothing) {
    Journal journal;
    FakeHotKeyCenter others(journal);
    const QString hint = HandBoundHotKeys(others).commandKeyHint();
    EXPECT_TRUE(hint.startsWith(others.commandKeyHint()));
    EXPECT_TRUE(hint.contains(QStringLiteral("bind a key to the command “zamber”")));
}

TEST(HandBoundHotKeysTest, TheOthersAreStillRegisteredAndTellOfTheirPresses) {
    Journal journal;
    FakeHotKeyCenter others(journal);
    others.takeElsewhere(PhysicalKey::Digit2);
    HandBoundHotKeys hotKeys(others);
    std::vector<std::uint32_t> pressed;
    hotKeys.setPressedHandler([&pressed](std::uint32_t id) { pressed.push_back(id); });
    EXPECT_TRUE(hotKeys.registerHotKey(PhysicalKey::V, {}, {.id = 7}));
    EXPECT_FALSE(hotKeys.registerHotKey(PhysicalKey::Digit2, {}, {.id = 8}));
    others.press(PhysicalKey::V);
    EXPECT_EQ(pressed, std::vector<std::uint32_t>{7});
}

} // namespace

} // namespace zamber::wayland
