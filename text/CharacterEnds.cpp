// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/CharacterEnds.h"

#include "text/Characters.h"
#include "text/CodePoints.h"

#include <unicode/uchar.h>
#include <unicode/uset.h>

#include <array>
#include <functional>
#include <string>

namespace zamber::text {

namespace {

constexpr char32_t FIRST_COMBINING = 0x0300;
constexpr char32_t COMBINING_GRAPHEME_JOINER = 0x034F;
constexpr char32_t ZERO_WIDTH_JOINER = 0x200D;
constexpr int VIRAMA_COMBINING_CLASS = 9;

bool isMark(char32_t c) {
    static const USet* const marks = [] {
        UErrorCode status = U_ZERO_ERROR;
        return u_getBinaryPropertySet(UCHAR_GRAPHEME_EXTEND, &status); // null on failure
    }();
    return c >= FIRST_COMBINING &&
           (c == ZERO_WIDTH_JOINER || (marks != nullptr && uset_contains(marks, static_cast<UChar32>(c)) != 0));
}

/// A skin tone, which goes with what stands before as a mark does.
bool isEmojiModifier(char32_t c) {
    return c >= 0x1F3FB && c <= 0x1F3FF;
}

enum class HangulLetter { None, Leading, Vowel, Trailing };

HangulLetter hangulLetter(char32_t c) {
    if (c < 0x1100 || (c > 0x11FF && c < 0xA960) || c > 0xD7FB) {
        return HangulLetter::None;
    }
    if (c <= 0x115F || (c >= 0xA960 && c <= 0xA97C)) {
        return HangulLetter::Leading;
    }
    if (c <= 0x11A7 || (c >= 0xD7B0 && c <= 0xD7C6)) {
        return HangulLetter::Vowel;
    }
    return c <= 0x11FF || c >= 0xD7CB ? HangulLetter::Trailing : HangulLetter::None;
}

bool isSameSyllable(HangulLetter left, HangulLetter right) {
    switch (left) {
    case HangulLetter::Leading:
        return right == HangulLetter::Leading || right == HangulLetter::Vowel;
    case HangulLetter::Vowel:
        return right == HangulLetter::Vowel || right == HangulLetter::Trailing;
    case HangulLetter::Trailing:
        return right == HangulLetter::Trailing;
    case HangulLetter::None:
        break;
    }
    return false;
}

/// What ICU answers where a joiner stands before the place. It is asked about the few characters around, and its
/// answers are kept: the same characters come again and again, and to ask takes a microsecond.
class JoinerAnswers {
public:
    bool endsCharacter(std::string_view text, std::size_t end, std::size_t afterNext) {
        auto start = end;
        for (int marks = 0; start > 0 && marks < MOST_MARKS_LOOKED_AT; ++marks) {
            start = previousCodePoint(text, start);
            auto after = start;
            if (const auto before = nextCodePoint(text, after); !isMark(before) && !isEmojiModifier(before)) {
                break;
            }
        }
        const auto around = text.substr(start, afterNext - start);
        auto& answer = m_answers[std::hash<std::string_view>()(around) % m_answers.size()];
        if (answer.around != around) {
            answer = {std::string(around), isCharacterBoundary(around, end - start)};
        }
        return answer.isEnd;
    }

private:
    static constexpr int MOST_MARKS_LOOKED_AT = 8;

    struct Answer {
        std::string around;
        bool isEnd = true;
    };
    std::array<Answer, 1024> m_answers;
};

} // namespace

bool mayJoinWhatFollows(char32_t c) {
    return c == COMBINING_GRAPHEME_JOINER || c == ZERO_WIDTH_JOINER ||
           (c >= FIRST_COMBINING && u_getCombiningClass(static_cast<UChar32>(c)) == VIRAMA_COMBINING_CLASS);
}

bool endsCharacter(std::string_view text, std::size_t end) {
    if (end == text.size() || static_cast<unsigned char>(text[end]) < 0x80) {
        return true;
    }
    auto afterNext = end;
    const auto next = nextCodePoint(text, afterNext);
    auto lastAt = previousCodePoint(text, end);
    const auto last = nextCodePoint(text, lastAt);
    const auto lastLetter = hangulLetter(last);
    if (const auto nextLetter = hangulLetter(next);
        lastLetter != HangulLetter::None && nextLetter != HangulLetter::None) {
        return !isSameSyllable(lastLetter, nextLetter);
    }
    if (isMark(next)) {
        return false;
    }
    static thread_local JoinerAnswers answers;
    return (lastLetter == HangulLetter::None && !mayJoinWhatFollows(last)) ||
           answers.endsCharacter(text, end, afterNext);
}

} // namespace zamber::text
