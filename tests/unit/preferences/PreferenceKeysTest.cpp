// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zamber::preferences {

namespace {

TEST(PreferenceKeys, NothingWrittenReadsAsTheFallbacks) {
    const FakeUserDefaults defaults;
    EXPECT_EQ(read(defaults, appTheme), QStringLiteral("auto"));
    EXPECT_EQ(read(defaults, popoverSize), QStringLiteral("normal"));
    EXPECT_EQ(read(defaults, playSoundOnPaste), false);
    EXPECT_EQ(read(defaults, maxItems), 20);
    EXPECT_EQ(read(defaults, showLineCount), true);
    EXPECT_EQ(read(defaults, showCharCount), true);
    EXPECT_EQ(read(defaults, previewURLs), true);
    EXPECT_EQ(read(defaults, hideSensitive), false);
    EXPECT_EQ(read(defaults, quickPasteEnabled), false);
    EXPECT_EQ(read(defaults, mainShortcut), QStringLiteral("⌘⇧V"));
    EXPECT_EQ(read(defaults, paste2nd), QStringLiteral("⌘⇧2"));
    EXPECT_EQ(read(defaults, paste3rd), QStringLiteral("⌘⇧3"));
    EXPECT_EQ(read(defaults, skippedVersion), QString());
    EXPECT_TRUE(defaults.values.isEmpty());
}

TEST(PreferenceKeys, EachIsStoredUnderItsName) {
    FakeUserDefaults defaults;
    write(defaults, appTheme, QStringLiteral("a"));
    write(defaults, popoverSize, QStringLiteral("b"));
    write(defaults, playSoundOnPaste, true);
    write(defaults, maxItems, 7);
    write(defaults, showLineCount, false);
    write(defaults, showCharCount, false);
    write(defaults, previewURLs, false);
    write(defaults, hideSensitive, true);
    write(defaults, quickPasteEnabled, true);
    write(defaults, skippedVersion, QStringLiteral("1.2"));
    const QHash<QString, FakeUserDefaults::Value> expected = {
        {QStringLiteral("appTheme"), QStringLiteral("a")},
        {QStringLiteral("popoverSize"), QStringLiteral("b")},
        {QStringLiteral("playSoundOnPaste"), true},
        {QStringLiteral("maxItems"), 7},
        {QStringLiteral("showLineCount"), false},
        {QStringLiteral("showCharCount"), false},
        {QStringLiteral("previewURLs"), false},
        {QStringLiteral("hideSensitive"), true},
        {QStringLiteral("quickPasteEnabled"), true},
        {QStringLiteral("skippedVersion"), QStringLiteral("1.2")},
    };
    EXPECT_TRUE(defaults.values == expected);
    EXPECT_EQ(mainShortcut.name, QStringLiteral("mainShortcut"));
    EXPECT_EQ(paste2nd.name, QStringLiteral("paste2nd"));
    EXPECT_EQ(paste3rd.name, QStringLiteral("paste3rd"));
}

TEST(PreferenceKeys, WhatIsWrittenIsReadWhateverItIs) {
    FakeUserDefaults defaults;
    write(defaults, popoverSize, QStringLiteral("gigantic"));
    EXPECT_EQ(read(defaults, popoverSize), QStringLiteral("gigantic"));
    write(defaults, maxItems, 0);
    EXPECT_EQ(read(defaults, maxItems), 0);
    write(defaults, showLineCount, false);
    EXPECT_EQ(read(defaults, showLineCount), false);
}

} // namespace

} // namespace zamber::preferences
