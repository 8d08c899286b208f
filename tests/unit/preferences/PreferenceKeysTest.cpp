// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zamber {

namespace {

TEST(PreferenceKeys, NothingWrittenReadsAsTheFallbacks) {
    const FakeUserDefaults defaults;
    EXPECT_EQ(read(defaults, keys::appTheme), QStringLiteral("auto"));
    EXPECT_EQ(read(defaults, keys::popoverSize), QStringLiteral("normal"));
    EXPECT_EQ(read(defaults, keys::playSoundOnPaste), false);
    EXPECT_EQ(read(defaults, keys::maxItems), 20);
    EXPECT_EQ(read(defaults, keys::showLineCount), true);
    EXPECT_EQ(read(defaults, keys::showCharCount), true);
    EXPECT_EQ(read(defaults, keys::previewURLs), true);
    EXPECT_EQ(read(defaults, keys::hideSensitive), false);
    EXPECT_EQ(read(defaults, keys::quickPasteEnabled), false);
    EXPECT_EQ(read(defaults, keys::mainShortcut), QStringLiteral("⌘⇧V"));
    EXPECT_EQ(read(defaults, keys::paste2nd), QStringLiteral("⌘⇧2"));
    EXPECT_EQ(read(defaults, keys::paste3rd), QStringLiteral("⌘⇧3"));
    EXPECT_EQ(read(defaults, keys::skippedVersion), QString());
    EXPECT_TRUE(defaults.values.isEmpty());
}

TEST(PreferenceKeys, EachIsStoredUnderItsName) {
    FakeUserDefaults defaults;
    write(defaults, keys::appTheme, QStringLiteral("a"));
    write(defaults, keys::popoverSize, QStringLiteral("b"));
    write(defaults, keys::playSoundOnPaste, true);
    write(defaults, keys::maxItems, 7);
    write(defaults, keys::showLineCount, false);
    write(defaults, keys::showCharCount, false);
    write(defaults, keys::previewURLs, false);
    write(defaults, keys::hideSensitive, true);
    write(defaults, keys::quickPasteEnabled, true);
    write(defaults, keys::skippedVersion, QStringLiteral("1.2"));
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
    EXPECT_EQ(keys::mainShortcut.name, QStringLiteral("mainShortcut"));
    EXPECT_EQ(keys::paste2nd.name, QStringLiteral("paste2nd"));
    EXPECT_EQ(keys::paste3rd.name, QStringLiteral("paste3rd"));
}

TEST(PreferenceKeys, WhatIsWrittenIsReadWhateverItIs) {
    FakeUserDefaults defaults;
    write(defaults, keys::popoverSize, QStringLiteral("gigantic"));
    EXPECT_EQ(read(defaults, keys::popoverSize), QStringLiteral("gigantic"));
    write(defaults, keys::maxItems, 0);
    EXPECT_EQ(read(defaults, keys::maxItems), 0);
    write(defaults, keys::showLineCount, false);
    EXPECT_EQ(read(defaults, keys::showLineCount), false);
}

} // namespace

} // namespace zamber
