// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/NormalForm.h"

#include "text/CodePoints.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace zamber::text {

namespace {

/// The five columns of a line of Unicode's file: source, NFC, NFD, NFKC, NFKD.
struct FormCase {
    std::string line;
    std::vector<std::string> columns;
};

std::vector<FormCase> unicodeFormCases() {
    std::ifstream file(NORMALIZATION_TEST);
    std::vector<FormCase> cases;
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        FormCase formCase{line, {}};
        for (std::string field; formCase.columns.size() < 5 && std::getline(fields, field, ';');) {
            if (field.empty() || field[0] == '#' || field[0] == '@') {
                break;
            }
            std::istringstream numbers(field);
            QByteArray text;
            for (unsigned codePoint = 0; numbers >> std::hex >> codePoint;) {
                appendCodePoint(text, codePoint);
            }
            formCase.columns.push_back(text.toStdString());
        }
        if (formCase.columns.size() == 5) {
            cases.push_back(formCase);
        }
    }
    return cases;
}

void expectEqual(const std::string& left, const std::string& right, const std::string& line) {
    EXPECT_TRUE(canonicallyEqual(left, right)) << line;
    EXPECT_TRUE(canonicallyEqual(right, left)) << line;
    EXPECT_EQ(canonicalHash(left), canonicalHash(right)) << line;
}

TEST(CanonicalEquivalence, HoldsForUnicodesOwnTestFile) {
    const auto cases = unicodeFormCases();
    ASSERT_GE(cases.size(), 18000U);
    for (const auto& [line, c] : cases) {
        expectEqual(c[0], c[1], line);
        expectEqual(c[0], c[2], line);
        expectEqual(c[3], c[4], line);
        EXPECT_EQ(canonicallyEqual(c[0], c[3]), c[2] == c[4]) << line;
    }
}

TEST(CanonicalEquivalence, HoldsWhereverTheTextIsCutIntoPieces) {
    const auto cases = unicodeFormCases();
    for (std::size_t i = 0; i < cases.size(); i += 97) {
        const auto& c = cases[i].columns;
        for (const std::size_t padding :
             {1, 63, 64, 250, 254, 255, 256, 257, 514, 1018, 1022, 1023, 1024, 1025, 2050}) {
            const std::string ascii(padding, 'e');
            std::string letters;
            while (letters.size() < padding) {
                letters += "é";
            }
            expectEqual(ascii + c[0] + letters, ascii + c[2] + letters, cases[i].line);
            expectEqual(letters + c[0] + ascii + c[1], letters + c[2] + ascii + c[0], cases[i].line);
            EXPECT_FALSE(canonicallyEqual(letters + c[0], letters + c[2] + "x")) << cases[i].line;
        }
    }
}

TEST(CanonicalEquivalence, ComposedAndDecomposedAreEqualOtherFormsAreNot) {
    expectEqual("café", "cafe\u0301", "");
    expectEqual("\u212B", "Å", "");
    expectEqual("가", "\u1100\u1161", "");
    expectEqual("q\u0323\u0307", "q\u0307\u0323", "");
    expectEqual("", "", "");
    expectEqual("a\u0301\u0316\u0300\u0323", "a\u0301\u0300\u0316\u0323", "");
    expectEqual("a\u0316é\u0323", "a\u0316ẹ\u0301", "");
    EXPECT_FALSE(canonicallyEqual("cafe", "café"));
    EXPECT_FALSE(canonicallyEqual("cafe", "cafe\u0301"));
    EXPECT_FALSE(canonicallyEqual("ﬁ", "fi"));
    EXPECT_FALSE(canonicallyEqual("A", "a"));
    EXPECT_FALSE(canonicallyEqual("", "a"));
    EXPECT_FALSE(canonicallyEqual("a", "ab"));
    EXPECT_FALSE(canonicallyEqual("a\u0301\u0300", "a\u0300\u0301"));
}

std::string repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

TEST(CanonicalEquivalence, HoldsForARunOfMarksOfAnyLength) {
    for (const int count : {1, 500, 1023, 1024, 1025, 2000, 5000, 100'000}) {
        const auto above = repeated("\u0301", count);
        const auto below = repeated("\u0316", count);
        expectEqual("a" + above + below, "a" + below + above, "");
        expectEqual("a" + above + "\u0316", "a\u0316" + above, "");
        expectEqual("é" + below + "b", "e" + below + "\u0301b", "");
        expectEqual("a" + repeated("\u0301\u0316", count), "a" + repeated("\u0316\u0301", count), "");
        EXPECT_FALSE(canonicallyEqual("a" + above + "\u0316", "a\u0317" + above));
        EXPECT_FALSE(canonicallyEqual("a" + above + "\u0316", "a\u0316\u0301" + above));
        EXPECT_FALSE(canonicallyEqual("a" + above + "\u0300", "a\u0300" + above));
    }
}

TEST(CanonicalEquivalence, TextsThatDifferHaveDifferentHashes) {
    EXPECT_NE(canonicalHash("a"), canonicalHash("b"));
    EXPECT_NE(canonicalHash("ab"), canonicalHash("ba"));
    EXPECT_NE(canonicalHash("cafe"), canonicalHash("café"));
    EXPECT_NE(byteHash(std::string_view("\0", 1)), byteHash(""));
}

TEST(CanonicalEquivalence, EndlessCombiningMarksTakeNoEndlessTime) {
    // Reordering them takes the square of their number unless they are cut.
    std::string marks = "a";
    while (marks.size() < 2'000'000) {
        marks += "\u0301\u0323";
    }
    EXPECT_TRUE(canonicallyEqual(marks, marks));
    EXPECT_NE(canonicalHash(marks), canonicalHash("a"));
}

TEST(CanonicalEquivalence, WhatIsNotUtf8DoesNoHarm) {
    for (const std::string text : {"\xFF", "a\xC3", "\xE2\x82", "\x80\x80\x80\x80\x80\x80\x80", "e\xCC\x81\xCC"}) {
        EXPECT_TRUE(canonicallyEqual(text, text));
        EXPECT_FALSE(canonicallyEqual(text, "plain"));
        EXPECT_NE(canonicalHash(text), canonicalHash("plain"));
    }
}

TEST(NormalPieces, PutTogetherAreTheText) {
    std::string text = std::string(100, 'a') + "é" + std::string(5000, 'b') + "\u0301";
    for (int i = 0; i < 40000; ++i) {
        text += "\u0323";
    }
    text += std::string(3'000'000, 'c') + "ö";
    std::string joined;
    NormalPieces pieces(text);
    for (auto piece = pieces.next(); !piece.empty(); piece = pieces.next()) {
        joined += piece;
    }
    EXPECT_TRUE(joined == text);
}

} // namespace

} // namespace zamber::text
