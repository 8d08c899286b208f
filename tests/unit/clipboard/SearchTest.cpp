// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Search.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <string>

namespace zamber {

namespace {

bool finds(const char* searched, const QByteArray& text, CaseFolding folding = CaseFolding::Common) {
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
    EXPECT_TRUE(finds("ı", "I", CaseFolding::Turkic));
    EXPECT_TRUE(finds("I", "ılık", CaseFolding::Turkic));
    EXPECT_TRUE(finds("i", "İstanbul", CaseFolding::Turkic));
    EXPECT_TRUE(finds("İSTANBUL", "istanbul", CaseFolding::Turkic));
    EXPECT_TRUE(finds("i", "I\u0307stanbul", CaseFolding::Turkic));
    EXPECT_FALSE(finds("image", "IMAGE", CaseFolding::Turkic));
    EXPECT_FALSE(finds("i", "I", CaseFolding::Turkic));
    EXPECT_TRUE(finds("image", "image", CaseFolding::Turkic));
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
        EXPECT_TRUE(finds("xix", text, CaseFolding::Turkic)) << padding;
        EXPECT_FALSE(finds("xıx", text, CaseFolding::Turkic)) << padding;
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

TEST(Search, KeyOfPlainLowerCaseSharesTheText) {
    const QByteArray text("all lower case already");
    EXPECT_EQ(makeSearchKey(text, CaseFolding::Common).constData(), text.constData());
    EXPECT_NE(makeSearchKey("Not", CaseFolding::Common), "Not");
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
    EXPECT_EQ(userCaseFolding(), CaseFolding::Turkic);
    QLocale::setDefault(QLocale(QLocale::Azerbaijani));
    EXPECT_EQ(userCaseFolding(), CaseFolding::Turkic);
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(userCaseFolding(), CaseFolding::Common);
    QLocale::setDefault(before);
}

} // namespace

} // namespace zamber
