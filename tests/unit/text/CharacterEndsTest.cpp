// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/CharacterEnds.h"

#include "text/Characters.h"
#include "text/CodePoints.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <random>
#include <string>
#include <vector>

namespace zamber::text {

namespace {

/// By ICU, which is asked about the whole text wherever the two characters could hang together.
bool expectedEnd(const std::string& text, std::size_t end) {
    auto lastAt = previousCodePoint(text, end);
    const auto last = nextCodePoint(text, lastAt);
    auto nextAt = end;
    const auto next = end < text.size() ? nextCodePoint(text, nextAt) : 0;
    const bool isMark = next == 0x200D || u_hasBinaryProperty(static_cast<UChar32>(next), UCHAR_GRAPHEME_EXTEND) != 0;
    const bool mayJoin =
        last == 0x200D || last == 0x034F || u_getCombiningClass(static_cast<UChar32>(last)) == 9 ||
        u_getIntPropertyValue(static_cast<UChar32>(last), UCHAR_HANGUL_SYLLABLE_TYPE) != U_HST_NOT_APPLICABLE;
    return !isMark && (!mayJoin || isCharacterBoundary(text, end));
}

TEST(CharacterEnds, AreThoseOfIcuWhereverMarksJoinersAndSyllablesStand) {
    const std::vector<std::string> parts = {
        "a",      " ",      "é",      "e\u0301", "\u1100", "\u1161", "\u11A8", "\uA960", "\uD7B0", "\uD7CB",
        "\u200D", "\u034F", "\u094D", "\u093C",  "क",      "ष",      "ি",      "ক",      "\u09CD", "்",
        "க",      "👩",     "👧",     "\uFE0F",  "🏽",     "❤",      "์",       "ก",      "\u0E33", "🇩",
    };
    std::mt19937 random(20260102);
    for (int round = 0; round < 100'000; ++round) {
        std::string text;
        for (auto length = 1 + random() % 7; length > 0; --length) {
            text += parts[random() % parts.size()];
        }
        for (std::size_t end = 1; end <= text.size(); ++end) {
            if (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
                continue;
            }
            ASSERT_EQ(endsCharacter(text, end), expectedEnd(text, end)) << text << " at " << end;
        }
    }
}

} // namespace

} // namespace zamber::text
