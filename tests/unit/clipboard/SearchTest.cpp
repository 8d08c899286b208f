// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Search.h"

#include "text/CharacterEnds.h"
#include "text/CodePoints.h"

#include <QLocale>

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zamber::clipboard {

namespace {

bool finds(const char* searched, const QByteArray& text, text::CaseFolding folding = text::CaseFolding::Common) {
    return searchKeyContains(makeSearchKey(text, folding).toStdString(),
                             makeSearchKey(QByteArray(searched), folding).toStdString());
}

TEST(Search, IgnoresCase) {
    EXPECT_TRUE(finds("image", "An IMAGE of it"));
    EXPECT_TRUE(finds("IMAGE", "an image of it"));
    EXPECT_TRUE(finds("ärger", "ÄRGER"));
    EXPECT_TRUE(finds("привет", "ПРИВЕТ"));
    EXPECT_FALSE(finds("images", "image"));
}

TEST(Search, TakesAnythingLiterally) {
    EXPECT_TRUE(finds(" ", "a b"));
    EXPECT_FALSE(finds(" ", "ab"));
    EXPECT_FALSE(finds(".*", "abc"));
    EXPECT_TRUE(finds("", ""));
    EXPECT_TRUE(finds("\n", "a\nb"));
}

TEST(Search, GermanSharpSIsTwo) {
    EXPECT_TRUE(finds("STRASSE", "Straße"));
    EXPECT_TRUE(finds("straße", "STRASSE"));
    EXPECT_TRUE(finds("ẞ", "ß"));
}

TEST(Search, GreekFinalSigmaIsASigma) {
    EXPECT_TRUE(finds("ΟΔΟΣ", "οδος"));
    EXPECT_TRUE(finds("οδοσ", "οδός") == false); // the accent counts
    EXPECT_TRUE(finds("οδός", "ΟΔΌΣ"));
    EXPECT_TRUE(finds("ᾳ", "ΑΙ"));
}

TEST(Search, LigaturesAreTheirLetters) {
    EXPECT_TRUE(finds("find", "ﬁnd"));
}

TEST(Search, TurkishPairsDotWithDotAndNoneWithNone) {
    EXPECT_TRUE(finds("ı", "I", text::CaseFolding::Turkic));
    EXPECT_TRUE(finds("I", "ılık", text::CaseFolding::Turkic));
    EXPECT_TRUE(finds("i", "İstanbul", text::CaseFolding::Turkic));
    EXPECT_TRUE(finds("İSTANBUL", "istanbul", text::CaseFolding::Turkic));
    EXPECT_TRUE(finds("i", "I\u0307stanbul", text::CaseFolding::Turkic));
    EXPECT_FALSE(finds("image", "IMAGE", text::CaseFolding::Turkic));
    EXPECT_FALSE(finds("i", "I", text::CaseFolding::Turkic));
    EXPECT_TRUE(finds("image", "image", text::CaseFolding::Turkic));
}

TEST(Search, ElsewhereIWithADotIsNoPlainI) {
    EXPECT_TRUE(finds("i", "I"));
    EXPECT_FALSE(finds("i", "İ"));
    EXPECT_FALSE(finds("ı", "I"));
    EXPECT_TRUE(finds("İstanbul", "i\u0307stanbul"));
}

TEST(Search, TurkishDotBelongsToItsIWhereverTheTextIsCutIntoPieces) {
    for (const int padding : {62, 63, 64, 200, 1021, 1022, 1023, 1024, 1025}) {
        const auto text = QByteArray(padding, 'x') + "I\u0307" + QByteArray(padding, 'x');
        EXPECT_TRUE(finds("xix", text, text::CaseFolding::Turkic)) << padding;
        EXPECT_FALSE(finds("xıx", text, text::CaseFolding::Turkic)) << padding;
    }
}

TEST(Search, ComposedAndDecomposedFindEachOther) {
    EXPECT_TRUE(finds("é", "cafe\u0301"));
    EXPECT_TRUE(finds("e\u0301", "CAFÉ"));
    EXPECT_TRUE(finds("가", "\u1100\u1161"));
}

TEST(Search, ALetterIsNotFoundInOneWithAnAccent) {
    EXPECT_FALSE(finds("e", "é"));
    EXPECT_FALSE(finds("e", "e\u0301"));
    EXPECT_FALSE(finds("cafe", "café"));
    EXPECT_TRUE(finds("e", "ée")); // the search goes on behind the rejected place
    EXPECT_TRUE(finds("ee", "ee\u0301ee"));
}

TEST(Search, AHitEndsWhereACharacterEnds) {
    EXPECT_FALSE(finds("가", "각"));
    EXPECT_FALSE(finds("क्", "क्षि"));
    EXPECT_FALSE(finds("👩", "👩‍👧"));
    EXPECT_TRUE(finds("각", "각 각"));
    EXPECT_TRUE(finds("가", "가나"));
    EXPECT_TRUE(finds("👩", "👩 👧"));
}

TEST(Search, ASyllableIsFoundBehindAnyNumberOfOthersThatBeginLikeIt) {
    QByteArray text;
    for (int i = 0; i < 1000; ++i) {
        text += "각간갈";
    }
    EXPECT_FALSE(finds("가", text));
    EXPECT_TRUE(finds("가", text + "가"));
    EXPECT_TRUE(finds("가", text + "가 "));
    EXPECT_FALSE(finds("ᄀ", text));
    EXPECT_TRUE(finds("갈각", text));
    EXPECT_FALSE(finds("갈가", text));
}

TEST(Search, WidthAndPunctuationCount) {
    EXPECT_FALSE(finds("a", "Ａ"));
    EXPECT_TRUE(finds("ａ", "Ａ"));
    EXPECT_FALSE(finds("coop", "co-op"));
    EXPECT_FALSE(finds("coop", "co\u00ADop"));
}

TEST(Search, FindsAcrossPiecesOfALongText) {
    for (int padding = 1010; padding < 1030; ++padding) {
        const auto text = QByteArray("é") + QByteArray(padding, 'x') + "Straße" + QByteArray(6000, 'y');
        EXPECT_TRUE(finds("xxSTRASSEyy", text)) << padding;
    }
}

/// The key as it is defined, of the whole text at once.
QByteArray expectedKey(const QByteArray& text, text::CaseFolding folding) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* nfd = icu::Normalizer2::getNFDInstance(status);
    auto key = nfd->normalize(icu::UnicodeString::fromUTF8(text.toStdString()), status);
    if (folding == text::CaseFolding::Turkic) {
        key.findAndReplace(u"I\u0307", u"i").findAndReplace(u"I", u"ı");
    }
    std::string bytes;
    nfd->normalize(key.foldCase(), status).toUTF8String(bytes);
    return QByteArray::fromStdString(bytes);
}

TEST(Search, EveryCharacterAmongOthersIsFoldedAndDecomposed) {
    for (char32_t c = 1; c <= 0x10FFFF; ++c) {
        if (U_IS_SURROGATE(c)) {
            continue;
        }
        QByteArray text("xY");
        text::appendCodePoint(text, c);
        text += "\u0323\u0301Zé";
        text::appendCodePoint(text, c);
        text::appendCodePoint(text, c);
        text += "W";
        ASSERT_EQ(makeSearchKey(text, text::CaseFolding::Common), expectedKey(text, text::CaseFolding::Common))
            << std::hex << +c;
        ASSERT_EQ(makeSearchKey(text, text::CaseFolding::Turkic), expectedKey(text, text::CaseFolding::Turkic))
            << std::hex << +c;
    }
}

TEST(Search, KeysOfRandomTextsAreFoldedAndDecomposed) {
    const QByteArray parts[] = {"a",      "I",      "\u0307",  "\u0323",
                                "é",      "É",      "ß",       "Σ",
                                "ς",      "\u0345", "ᾳ",       "가",
                                "\u1100", "\u1161", "İ",       "ı",
                                "Í",      "文",     "😀",      "\u0F73",
                                "Привет", " ",      "\n",      "Ǆ",
                                "ŉ",      "ΐ",      "ﬃ",       "क्षि",
                                "\u212A", "\u0344", "I\u0307", " PLAIN ASCII TEXT OF SOME LENGTH, AND MORE "};
    std::mt19937 random(20260102);
    for (int round = 0; round < 20'000; ++round) {
        QByteArray text;
        for (auto length = random() % 12; length > 0; --length) {
            text += parts[random() % std::size(parts)];
        }
        for (const auto folding : {text::CaseFolding::Common, text::CaseFolding::Turkic}) {
            ASSERT_EQ(makeSearchKey(text, folding), expectedKey(text, folding)) << text.toStdString();
        }
    }
}

TEST(Search, KeysOfLongRunsOfMarksAreInCanonicalOrder) {
    QByteArray marks;
    for (int i = 0; i < 3000; ++i) {
        marks += "\u0301\u0323\u0345";
    }
    const auto text = "Straße E" + marks + "é";
    EXPECT_EQ(makeSearchKey(text, text::CaseFolding::Common), expectedKey(text, text::CaseFolding::Common));
}

TEST(Search, FindsATextWhereverItStandsInALongOne) {
    // The first letter, by which it is looked for, stands at the start already.
    for (std::size_t before = 0; before < 4300; before += before == 300 ? 3700 : 1) {
        for (const std::size_t after : {0, 1, 40, 200}) {
            auto text = 'z' + std::string(before, 'a') + "zebra" + std::string(after, 'a');
            EXPECT_TRUE(searchKeyContains(text, "zebra")) << before << ' ' << after;
            text[1 + before + 2] = 'p';
            EXPECT_FALSE(searchKeyContains(text, "zebra")) << before << ' ' << after;
        }
    }
}

TEST(Search, FindsWhatALetterByLetterSearchFinds) {
    std::mt19937 random(20260102);
    for (int round = 0; round < 50'000; ++round) {
        std::string text(random() % 120 * (round % 10 == 0 ? 20 : 1), 'a');
        std::ranges::generate(text, [&] { return "abz "[random() % 4]; });
        std::string searched(1 + random() % 9, 'a');
        std::ranges::generate(searched, [&] { return "abz "[random() % 4]; });
        ASSERT_EQ(searchKeyContains(text, searched), text.contains(searched)) << text << '/' << searched;
    }
}

/// Place by place, each asked whether a character ends there.
bool standsPlainly(std::string_view key, std::string_view searched) {
    for (auto at = key.find(searched); at != std::string_view::npos; at = key.find(searched, at + 1)) {
        if (text::endsCharacter(key, at + searched.size())) {
            return true;
        }
    }
    return false;
}

/// A few of a script's characters and marks, so few that pieces of them stand in a text of them again and again.
const std::vector<std::vector<std::string>>& scripts() {
    static const std::vector<std::vector<std::string>> all = {
        {"\u1100", "\u1161", "\u11A8", "\u1102", " "},
        {"가", "각", "나", "낙", "!"},
        {"ก", "็", "่", "\u0E33", "า"},
        {"क", "ष", "\u094D", "\u093C", "\u093E", "\u200D"},
        {"க", "\u0BCD", "ষ", "\u09CD", "ক"},
        {"👩", "👧", "\u200D", "🏽", "\uFE0F", "❤", "🇩", "🇪"},
        {"e", "\u0301", "\u0316", "\u034F", "\u0323", "a"},
        {"а", "б", "\u0306", "и"},
        {"的", "一", "\uFE00", "\u3099", "か"},
        {"\U00011013", "\U00011046", "\U0001D165", "x", "\U000E0100"},
    };
    return all;
}

std::string randomText(const std::vector<std::string>& parts, std::size_t length, std::mt19937& random) {
    std::string text;
    for (; length > 0; --length) {
        text += parts[random() % parts.size()];
    }
    return text;
}

TEST(Search, FindsWhatASearchPlaceByPlaceFindsInEveryScript) {
    std::mt19937 random(20260102);
    for (const auto& script : scripts()) {
        for (int round = 0; round < 10'000; ++round) {
            const auto key = randomText(script, random() % (round % 10 == 0 ? 400 : 40), random);
            const auto searched = randomText(script, 1 + random() % 4, random);
            ASSERT_EQ(searchKeyContains(key, searched), standsPlainly(key, searched)) << key << '/' << searched;
        }
    }
}

TEST(Search, RefusesInEveryScriptWhatASearchPlaceByPlaceRefusesAllTheTime) {
    std::mt19937 random(20260102);
    int refused = 0;
    for (const auto& script : scripts()) {
        for (int round = 0; round < 3'000; ++round) {
            // The same few characters again and again, and another at the end.
            const auto again = randomText(script, 1 + random() % 4, random);
            std::string key;
            while (key.size() < 200) {
                key += again;
            }
            key += randomText(script, random() % 4, random);
            auto end = text::previousCodePoint(again, 1 + random() % again.size());
            text::nextCodePoint(again, end);
            const auto searched = again.substr(0, end);
            const bool stands = standsPlainly(key, searched);
            ASSERT_EQ(searchKeyContains(key, searched), stands) << key << '/' << searched;
            refused += stands ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 1000);
}

TEST(Search, ALongTextIsFoundAmongMostOfItself) {
    const std::string half(2'000, 'a');
    const auto searched = half + 'b' + half;
    const std::string key(300'000, 'a');
    EXPECT_FALSE(searchKeyContains(key, searched));
    EXPECT_TRUE(searchKeyContains(key + 'b' + half, searched));
    EXPECT_FALSE(searchKeyContains(key + 'b' + half + "\u0301", searched));
    EXPECT_TRUE(searchKeyContains(key + 'b' + half + "\u0301" + searched, searched));
    EXPECT_TRUE(searchKeyContains(key + half + 'b' + half + key, searched));
}

TEST(Search, ALongTextIsFoundAmongOnesThatEndInsideACharacter) {
    std::string again;
    for (int i = 0; i < 500; ++i) {
        again += "ab\u0301";
    }
    std::string key;
    for (int i = 0; i < 100; ++i) {
        key += again;
    }
    EXPECT_FALSE(searchKeyContains(key, again + "ab"));
    EXPECT_TRUE(searchKeyContains(key + "ab", again + "ab"));
    EXPECT_TRUE(searchKeyContains(key + "abc" + key, again + "ab"));
}

TEST(Search, KeyOfPlainLowerCaseSharesTheText) {
    const QByteArray text("all lower case already");
    EXPECT_EQ(makeSearchKey(text, text::CaseFolding::Common).constData(), text.constData());
    EXPECT_NE(makeSearchKey("Not", text::CaseFolding::Common), "Not");
}

TEST(Search, WhatIsNotUtf8DoesNoHarm) {
    for (const auto* text : {"\xFF", "a\xC3", "\xE2\x82", "\x80\x80\x80\x80\x80\x80\x80"}) {
        EXPECT_FALSE(finds("x", text));
        EXPECT_FALSE(finds(text, "x"));
    }
}

TEST(Search, FollowsTheUsersLanguage) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Turkish));
    EXPECT_EQ(userCaseFolding(), text::CaseFolding::Turkic);
    QLocale::setDefault(QLocale(QLocale::Azerbaijani));
    EXPECT_EQ(userCaseFolding(), text::CaseFolding::Turkic);
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(userCaseFolding(), text::CaseFolding::Common);
    QLocale::setDefault(before);
}

} // namespace

} // namespace zamber::clipboard
