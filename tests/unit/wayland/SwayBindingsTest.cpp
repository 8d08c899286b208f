// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayBindings.h"

#include <gtest/gtest.h>

namespace zamber::wayland {

namespace {

constexpr HotKeyModifiers COMMAND_SHIFT{.command = true, .shift = true};

struct Case {
    const char* configuration;
    bool isV;
    bool isTwo;
};

void PrintTo(const Case& row, std::ostream* out) {
    *out << QByteArray(row.configuration).replace('\n', "; ").constData();
}

} // namespace

TEST(SwayBindings, ACombinationIsNamedByKeyCode) {
    EXPECT_EQ(swayCombination(PhysicalKey::V, COMMAND_SHIFT), "Mod4+Shift+55");
    EXPECT_EQ(swayCombination(PhysicalKey::Digit3, {.command = true, .shift = false}), "Mod4+12");
}

class SwayConfigurationTest : public testing::TestWithParam<Case> {};

TEST_P(SwayConfigurationTest, TellsWhichCombinationsTheUserHasTaken) {
    EXPECT_EQ(isBoundIn(GetParam().configuration, PhysicalKey::V, COMMAND_SHIFT), GetParam().isV);
    EXPECT_EQ(isBoundIn(GetParam().configuration, PhysicalKey::Digit2, COMMAND_SHIFT), GetParam().isTwo);
}

INSTANTIATE_TEST_SUITE_P(
    , SwayConfigurationTest,
    testing::Values(Case{"", false, false}, //
                    Case{"bindsym Mod4+Shift+v exec x", true, false},
                    Case{"  bindsym   --no-repeat --locked Shift+Mod4+V exec x", true, false},
                    Case{"set $mod Mod4\nbindsym $mod+Shift+2 move container to workspace number 2", false, true},
                    Case{"set $mod Mod4\nset $move $mod+Shift\nbindsym $move+v exec x", true, false},
                    Case{"set $m Mod1\nset $mod Mod4\nbindsym $mod+Shift+v exec x", true, false},
                    Case{"set $mod Mod1\nbindsym $mod+Shift+v exec x", false, false},
                    Case{"bindcode Mod4+Shift+55 exec x", true, false},
                    Case{"bindsym Mod4+Shift+at exec x", false, true},
                    Case{"bindsym Super+Shift+v exec x", true, false}, Case{"bindsym Mod4+v exec x", false, false},
                    Case{"bindsym Mod4+Shift+Ctrl+v exec x", false, false},
                    Case{"# bindsym Mod4+Shift+v exec x", false, false}, Case{"bindsym", false, false},
                    Case{"bindsym --locked", false, false}, Case{"set $mod", false, false}));

} // namespace zamber::wayland
