// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayBindings.h"

#include <gtest/gtest.h>

namespace zamber::wayland {

namespace {

constexpr HotKeyModifiers SUPER_SHIFT{.command = true, .shift = true};

struct ConfigurationCase {
    const char* configuration;
    bool isV;
    bool isTwo;
};

void PrintTo(const ConfigurationCase& row, std::ostream* out) {
    *out << QByteArray(row.configuration).replace('\n', "; ").constData();
}

} // namespace

TEST(SwayBindings, ACombinationIsNamedByKeyCode) {
    EXPECT_EQ(swayCombination(PhysicalKey::V, SUPER_SHIFT), "Mod4+Shift+55");
    EXPECT_EQ(swayCombination(PhysicalKey::Digit3, {.command = true, .shift = false}), "Mod4+12");
}

class SwayConfigurationTest : public testing::TestWithParam<ConfigurationCase> {};

TEST_P(SwayConfigurationTest, TellsWhichCombinationsTheUserHasTaken) {
    EXPECT_EQ(isBoundIn(GetParam().configuration, PhysicalKey::V, SUPER_SHIFT), GetParam().isV);
    EXPECT_EQ(isBoundIn(GetParam().configuration, PhysicalKey::Digit2, SUPER_SHIFT), GetParam().isTwo);
}

INSTANTIATE_TEST_SUITE_P(
    , SwayConfigurationTest,
    testing::Values(ConfigurationCase{"", false, false}, //
                    ConfigurationCase{"bindsym Mod4+Shift+v exec x", true, false},
                    ConfigurationCase{"  bindsym   --no-repeat --locked Shift+Mod4+V exec x", true, false},
                    ConfigurationCase{"set $mod Mod4\nbindsym $mod+Shift+2 move container to workspace number 2", false,
                                      true},
                    ConfigurationCase{"set $mod Mod4\nset $move $mod+Shift\nbindsym $move+v exec x", true, false},
                    ConfigurationCase{"set $m Mod1\nset $mod Mod4\nbindsym $mod+Shift+v exec x", true, false},
                    ConfigurationCase{"set $mod Mod1\nbindsym $mod+Shift+v exec x", false, false},
                    ConfigurationCase{"bindcode Mod4+Shift+55 exec x", true, false},
                    ConfigurationCase{"bindsym Mod4+Shift+at exec x", false, true},
                    ConfigurationCase{"bindsym Super+Shift+v exec x", true, false},
                    ConfigurationCase{"bindsym Mod4+v exec x", false, false},
                    ConfigurationCase{"bindsym Mod4+Shift+Ctrl+v exec x", false, false},
                    ConfigurationCase{"# bindsym Mod4+Shift+v exec x", false, false},
                    ConfigurationCase{"bindsym", false, false}, ConfigurationCase{"bindsym --locked", false, false},
                    ConfigurationCase{"set $mod", false, false}));

} // namespace zamber::wayland
