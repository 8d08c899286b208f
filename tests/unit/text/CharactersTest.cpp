// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/Characters.h"

#include "text/CodePoints.h"

#include <gtest/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/uchar.h>

#include <fstream>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace zamber::text {

namespace {

std::string utf8(std::initializer_list<char32_t> codePoints) {
    QByteArray text;
    for (const auto c : codePoints) {
        appendCodePoint(text, c);
    }
    return text.toStdString();
}

/// The ends of all characters, one by one.
std::vector<std::size_t> boundaries(std::string_view text) {
    std::vector<std::size_t> ends;
    for (std::size_t at = 0; at < text.size();) {
        const auto run = countCharacters(text.substr(at), 1);
        EXPECT_EQ(run.count, 1U);
        EXPECT_GT(run.bytes, 0U);
        at += run.bytes;
        ends.push_back(at);
    }
    return ends;
}

/// The same by ICU alone, over UTF-16.
std::vector<std::size_t> expectedBoundaries(const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    static const std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const auto units = icu::UnicodeString::fromUTF8(text);
    iterator->setText(units);
    std::vector<std::size_t> ends;
    for (auto at = iterator->next(); at != icu::BreakIterator::DONE; at = iterator->next()) {
        std::string start;
        units.tempSubString(0, at).toUTF8String(start);
        ends.push_back(start.size());
    }
    return ends;
}

struct BreakCase {
    std::string line;
    std::string text;
    std::vector<std::size_t> ends;
};

std::vector<BreakCase> unicodeBreakCases() {
    std::ifstream file(GRAPHEME_BREAK_TEST);
    std::vector<BreakCase> cases;
    for (std::string line; std::getline(file, line);) {
        std::istringstream tokens(line.substr(0, line.find('#')));
        BreakCase breakCase{line, {}, {}};
        for (std::string token; tokens >> token;) {
            if (token == "÷" && !breakCase.text.empty()) {
                breakCase.ends.push_back(breakCase.text.size());
            } else if (token != "÷" && token != "×") {
                breakCase.text += utf8({static_cast<char32_t>(std::stoul(token, nullptr, 16))});
            }
        }
        if (!breakCase.text.empty()) {
            cases.push_back(breakCase);
        }
    }
    return cases;
}

TEST(Characters, AreThoseOfUnicodesOwnTestFile) {
    const auto cases = unicodeBreakCases();
    ASSERT_GE(cases.size(), 600U);
    for (const auto& [line, text, ends] : cases) {
        EXPECT_EQ(boundaries(text), ends) << line;
        EXPECT_EQ(countCharacters(text).count, ends.size()) << line;
        EXPECT_EQ(countCharacters(text).bytes, text.size()) << line;
    }
}

TEST(Characters, PrefixOfSoManyCharactersEndsAtABoundary) {
    for (const auto& [line, text, ends] : unicodeBreakCases()) {
        const auto padded = "ab\r\n" + text + "文é\r\n";
        const auto all = expectedBoundaries(padded);
        for (std::size_t limit = 0; limit <= all.size() + 1; ++limit) {
            const auto run = countCharacters(padded, limit);
            EXPECT_EQ(run.count, std::min(limit, all.size())) << line;
            EXPECT_EQ(run.bytes, run.count == 0 ? 0 : all[run.count - 1]) << line;
        }
    }
}

TEST(Characters, FastWayAndIcuAgreeOnRandomTexts) {
    const std::vector<char32_t> alphabet = {
        'a',    '\r',   '\n',    ' ',     0xE9,    0xA9,    0xAD,    0x301,   0x3B1,   0x430,  0x488,  0x5D0,
        0x5B0,  0x600,  0x628,   0x64B,   0x915,   0x93F,   0x94D,   0xE01,   0xE33,   0x1100, 0x1161, 0x11A8,
        0x1E9E, 0x200B, 0x200D,  0x2028,  0x20E3,  0x3042,  0x3099,  0x30AB,  0x4E2D,  0xAC00, 0xAC01, 0xFE0F,
        0xFF01, 0xFF9E, 0x1F1E6, 0x1F1E9, 0x1F3FD, 0x1F468, 0x1F469, 0x110BD, 0xE0067, 0x3030, 0x3297, '1'};
    std::mt19937 random(20260102);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto length = random() % 40; length > 0; --length) {
            text += utf8({alphabet[random() % alphabet.size()]});
        }
        const auto expected = expectedBoundaries(text);
        ASSERT_EQ(boundaries(text), expected);
        ASSERT_EQ(countCharacters(text).count, expected.size());
        for (std::size_t at = 0; at < expected.size(); ++at) {
            ASSERT_TRUE(isCharacterBoundary(text, expected[at]));
        }
    }
}

TEST(Characters, LineBreaksOfTwoCharactersCountOnceWhereverTheyStand) {
    for (std::size_t before = 0; before < 70; ++before) {
        for (const auto* after :
             {"", "x", "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx", "\u0301", "é"}) {
            const auto text = std::string(before, 'a') + "\r\n\r\r\n\n" + after + "\r\n";
            const auto expected = expectedBoundaries(text);
            ASSERT_EQ(countCharacters(text).count, expected.size()) << before << after;
            for (std::size_t limit = 1; limit <= expected.size(); ++limit) {
                ASSERT_EQ(countCharacters(text, limit).bytes, expected[limit - 1]) << before << after << limit;
            }
        }
    }
}

TEST(Characters, EveryCodePointBetweenLettersCountsAsIcuCountsIt) {
    for (char32_t c = 1; c <= 0x10FFFF; ++c) {
        if (U_IS_SURROGATE(c)) {
            continue;
        }
        const auto text = "a" + utf8({c, c}) + "é中";
        ASSERT_EQ(boundaries(text), expectedBoundaries(text)) << std::hex << static_cast<unsigned>(c);
    }
}

TEST(Characters, ALineBreakOfTwoBytesIsOne) {
    EXPECT_EQ(countCharacters("a\r\nb\r\n\r\r\n\n").count, 7U);
}

TEST(Characters, EmojiAndConjunctsAreOneEach) {
    EXPECT_EQ(countCharacters("👩‍👩‍👧‍👦🇩🇪👍🏽🏴󠁧󠁢󠁳󠁣󠁴󠁿").count, 4U);
    EXPECT_EQ(countCharacters("नमस्ते😀").count, expectedBoundaries("नमस्ते😀").size());
    EXPECT_EQ(countCharacters("e\u0301").count, 1U);
}

TEST(Characters, ALimitSparesTheRestOfALongText) {
    // A walk over all of it, or a copy, would take seconds and gigabytes.
    std::string text(std::size_t{1} << 26, 'x');
    EXPECT_EQ(countCharacters(text, 150).bytes, 150U);
    for (std::size_t at = 0; at + 3 <= text.size(); at += 3) {
        text.replace(at, 3, "ก");
    }
    EXPECT_EQ(countCharacters(text, 150).bytes, 450U);
}

TEST(Characters, WhatIsNotUtf8DoesNoHarm) {
    for (const std::string text : {"\xFF", "a\xC3", "\xE2\x82", "\xF0\x9F\x98", "\x80\x80\x80\x80\x80\x80",
                                   "\xED\xA0\x80x", "e\xCC", "\xC3\xC3\xC3 ", " \x80 "}) {
        EXPECT_EQ(countCharacters(text).bytes, text.size());
        EXPECT_LE(countCharacters(text).count, text.size());
        EXPECT_LE(trimmed(text).size(), text.size());
        EXPECT_EQ(countLines(text), 1U);
    }
}

TEST(Trimming, TakesSpacesTabsAndLineBreaksFromTheEndsOnly) {
    EXPECT_EQ(trimmed("  hello  \n"), "hello");
    EXPECT_EQ(trimmed("\t\r\n a b \u00A0\u2003\u3000\u2028\u2029\u0085\v\f"), "a b");
    EXPECT_EQ(trimmed(" \n\t "), "");
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed("é"), "é");
    EXPECT_EQ(trimmed("\u200Bx\u200B"), "\u200Bx\u200B");
    EXPECT_EQ(trimmed("\u3000é\u3000"), "é");
}

TEST(Trimming, WhiteSpaceIsWhatUnicodeCallsASeparatorOfSpaces) {
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (U_IS_SURROGATE(c)) {
            continue;
        }
        const bool isSpace = c == '\t' || u_charType(static_cast<UChar32>(c)) == U_SPACE_SEPARATOR;
        const bool isNewline = (c >= 0xA && c <= 0xD) || c == 0x85 || c == 0x2028 || c == 0x2029;
        const auto text = utf8({c});
        ASSERT_EQ(trimmed(text).empty(), isSpace || isNewline) << std::hex << static_cast<unsigned>(c);
        ASSERT_EQ(countLines(text), isSpace || isNewline ? 0U : 1U) << std::hex << static_cast<unsigned>(c);
        ASSERT_EQ(countLines("a" + text + "a"), isNewline ? 2U : 1U) << std::hex << static_cast<unsigned>(c);
    }
}

TEST(Lines, AreCountedWhenTheyHoldMoreThanSpacesAndTabs) {
    EXPECT_EQ(countLines(""), 0U);
    EXPECT_EQ(countLines(" \t\n\r\n \u00A0\n"), 0U);
    EXPECT_EQ(countLines("one"), 1U);
    EXPECT_EQ(countLines("one\n"), 1U);
    EXPECT_EQ(countLines("one\r\ntwo\rthree\n\n \nfour\u2028five\u2029six\u0085seven\veight\fnine"), 9U);
}

} // namespace

} // namespace zamber::text
