// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/PopoverPreferences.h"

#include "preferences/PreferenceKeys.h"

#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zamber::popover {

using namespace Qt::StringLiterals;

TEST(PopoverPreferences, TheSizeHasThreePresets) {
    FakeUserDefaults defaults;
    EXPECT_EQ(popoverSize(defaults), QSize(440, 420));
    for (const auto& [preset, size] :
         {std::pair(u"compact"_s, QSize(360, 340)), std::pair(u"large"_s, QSize(500, 520)),
          std::pair(u"normal"_s, QSize(440, 420)), std::pair(u"Large"_s, QSize(440, 420))}) {
        write(defaults, preferences::popoverSize, preset);
        EXPECT_EQ(popoverSize(defaults), size) << preset.toStdString();
    }
}

TEST(PopoverPreferences, TheThemeIsTheUsersOrElseTheDesktops) {
    FakeUserDefaults defaults;
    FakeAppearance desktop;
    const auto isDark = [&] { return popoverPalette(popoverAppearance(defaults), desktop).isDark; };
    for (const bool desktopIsDark : {false, true}) {
        desktop.setDark(desktopIsDark);
        write(defaults, preferences::appTheme, u"auto"_s);
        EXPECT_EQ(isDark(), desktopIsDark);
        write(defaults, preferences::appTheme, u"Dark"_s); // no theme of ours
        EXPECT_EQ(isDark(), desktopIsDark);
        write(defaults, preferences::appTheme, u"dark"_s);
        EXPECT_TRUE(isDark());
        write(defaults, preferences::appTheme, u"light"_s);
        EXPECT_FALSE(isDark());
    }
}

} // namespace zamber::popover
