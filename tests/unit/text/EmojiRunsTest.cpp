// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/EmojiRuns.h"

#include <gtest/gtest.h>

#include <string>

namespace zamber::text {

namespace {

constexpr auto TEXT = EmojiForm::Text;
constexpr auto PICTURE = EmojiForm::Picture;

std::vector<EmojiRun> whole(std::u16string_view text, EmojiForm form) {
    return {{0, text.size(), form}};
}

} // namespace

TEST(EmojiRuns, OrdinaryTextHasNone) {
    for (const std::u16string_view text :
         {u"", u"hello, world", u"Zażółć · Привет · 你好 · שלום", u"1234567890 #tag *bold*", u"→ ⌘⇧V … §"}) {
        EXPECT_TRUE(emojiRuns(text).empty()) << std::string(text.begin(), text.end());
    }
}

TEST(EmojiRuns, EachCharacterHasADefault) {
    EXPECT_EQ(emojiRuns(u"😀"), whole(u"😀", PICTURE));
    EXPECT_EQ(emojiRuns(u"⌚"), whole(u"⌚", PICTURE));
    for (const std::u16string_view text : {u"☎", u"❤", u"✔", u"©", u"↔", u"🖥"}) {
        EXPECT_EQ(emojiRuns(text), whole(text, TEXT)) << std::string(text.begin(), text.end());
    }
}

TEST(EmojiRuns, TheSelectorBehindItDecides) {
    EXPECT_EQ(emojiRuns(u"☎\uFE0F"), whole(u"☎\uFE0F", PICTURE));
    EXPECT_EQ(emojiRuns(u"☎\uFE0E"), whole(u"☎\uFE0E", TEXT));
    EXPECT_EQ(emojiRuns(u"😀\uFE0E"), whole(u"😀\uFE0E", TEXT));
    EXPECT_EQ(emojiRuns(u"😀\uFE0F"), whole(u"😀\uFE0F", PICTURE));
    EXPECT_TRUE(emojiRuns(u"a\uFE0F").empty()) << "a letter has no picture";
}

TEST(EmojiRuns, SequencesAreOnePicture) {
    for (const std::u16string_view text : {
             u"🇩🇪",                                                             // a flag
             u"🏴\U000E0067\U000E0062\U000E0073\U000E0063\U000E0074\U000E007F", // a region's
             u"👍🏽",                                                           // a skin tone
             u"☝🏽",                                                            // on what is a letter by itself
             u"👩\u200D💻",                                                     // joined
             u"👩🏽\u200D❤\uFE0F\u200D👩🏽",                                    // more than once
             u"❤\uFE0F\u200D🔥",                                                // a letter first
             u"👁\u200D🗨",                                                     // letters alone
             u"1\uFE0F\u20E3",                                                  // keycaps
             u"#\uFE0F\u20E3",
         }) {
        EXPECT_EQ(emojiRuns(text), whole(text, PICTURE)) << testing::PrintToString(std::u16string(text));
    }
}

TEST(EmojiRuns, WhatIsNotASequenceStaysText) {
    EXPECT_TRUE(emojiRuns(u"1\u20E3").empty()) << "a keycap by letters";
    EXPECT_TRUE(emojiRuns(u"1\uFE0F").empty());
    EXPECT_TRUE(emojiRuns(u"🇩").empty()) << "half a flag";
    EXPECT_EQ(emojiRuns(u"🇩🇪🇫"), (std::vector<EmojiRun>{{0, 4, PICTURE}}));
    EXPECT_EQ(emojiRuns(u"😀\u200Da"), (std::vector<EmojiRun>{{0, 2, PICTURE}})) << "joined to a letter";
    EXPECT_TRUE(emojiRuns(std::u16string_view(u"\xD83D")).empty()) << "half a surrogate pair";
}

TEST(EmojiRuns, NeighboursOfOneFormAreOneRun) {
    EXPECT_EQ(emojiRuns(u"ab😀🇩🇪☎☎\uFE0F1\uFE0F\u20E3 😀"),
              (std::vector<EmojiRun>{{2, 6, PICTURE}, {8, 1, TEXT}, {9, 5, PICTURE}, {15, 2, PICTURE}}));
}

} // namespace zamber::text
