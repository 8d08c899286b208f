// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "tests/unit/popover/ClipboardListViewFixture.h"

namespace zamber::popover {

/// The list view while the user changes the preferences.
class ClipboardListPreferencesTest : public ClipboardListViewTest {};

TEST_F(ClipboardListPreferencesTest, TheSizeFollowsItsPreference) {
    open();
    EXPECT_EQ(stage.view->size(), QSize(440, 420));
    write(stage.defaults, preferences::popoverSize, u"compact"_s);
    EXPECT_EQ(stage.view->size(), QSize(360, 340));
    write(stage.defaults, preferences::popoverSize, u"large"_s);
    EXPECT_EQ(stage.view->size(), QSize(500, 520));
    write(stage.defaults, preferences::popoverSize, u"Compact"_s);
    EXPECT_EQ(stage.view->size(), QSize(440, 420));
}

TEST_F(ClipboardListPreferencesTest, TheThemeFollowsItsPreferenceAndElseTheDesktop) {
    open();
    const auto isDark = [&] { return stage.view->grab().toImage().pixelColor(220, 5).lightness() < 128; };
    EXPECT_FALSE(isDark());
    write(stage.defaults, preferences::appTheme, u"dark"_s);
    EXPECT_TRUE(isDark());
    write(stage.defaults, preferences::appTheme, u"auto"_s);
    EXPECT_FALSE(isDark());
    stage.appearance.setDark(true);
    stage.view->updateAppearance();
    EXPECT_TRUE(isDark());
    write(stage.defaults, preferences::appTheme, u"light"_s);
    EXPECT_FALSE(isDark());
}

TEST_F(ClipboardListPreferencesTest, TheCountsPreferencesChangeRowsAtOnce) {
    stage.copyText("one\ntwo");
    open();
    const int withCounts = stage.list().rowRectangle(0).height();
    write(stage.defaults, preferences::showLineCount, false);
    EXPECT_EQ(stage.list().rowRectangle(0).height(), withCounts);
    write(stage.defaults, preferences::showCharCount, false);
    EXPECT_LT(stage.list().rowRectangle(0).height(), withCounts);
}

TEST_F(ClipboardListPreferencesTest, PreviewingLinksTakesEffectAtOnce) {
    stage.copyText("https://example.org/12345");
    open();
    const int withHost = stage.list().rowRectangle(0).height();
    write(stage.defaults, preferences::previewURLs, false);
    EXPECT_NE(stage.list().rowRectangle(0).height(), withHost);
}

TEST_F(ClipboardListPreferencesTest, HidingSensitiveTextsTakesEffectAtOnce) {
    stage.copyText("password = hunter2-Correct!Horse9");
    open();
    symbols.requests.clear();
    stage.view->grab();
    EXPECT_FALSE(symbols.requestedNames().contains(u"lock.fill"_s));
    write(stage.defaults, preferences::hideSensitive, true);
    stage.view->grab();
    EXPECT_TRUE(symbols.requestedNames().contains(u"lock.fill"_s));
}

} // namespace zamber::popover
