// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/CharacterEnds.h"

#include "text/Characters.h"
#include "text/CodePoints.h"

#include <unicode/uchar.h>
#include <unicode/uset.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdint>
#include <cstring>
#include <memory>

namespace zamber::text {

namespace {

constexpr char32_t FIRST_COMBINING = 0x0300;
constexpr char32_t COMBINING_GRAPHEME_JOINER = 0x034F;
constexpr int VIRAMA_COMBINING_CLASS = 9;

/// What extends the character before it, and what joins it to the next. A bit for each character of the planes that are
/// written in, since to ask ICU takes several times as long.
class Marks {
public:
    Marks() {
        UErrorCode status = U_ZERO_ERROR;
        m_all = u_getBinaryPropertySet(UCHAR_GRAPHEME_EXTEND, &status); // null on failure
        for (int range = 0; m_all != nullptr && range < uset_getItemCount(m_all); ++range) {
            UChar32 first = 0;
            UChar32 last = -1;
            uset_getItem(m_all, range, &first, &last, nullptr, 0, &status);
            for (auto c = first; c <= last && c < WRITTEN; ++c) {
                m_extend.set(static_cast<std::size_t>(c));
                m_join.set(static_cast<std::size_t>(c), u_getCombiningClass(c) == VIRAMA_COMBINING_CLASS);
            }
        }
        m_extend.set(ZERO_WIDTH_JOINER);
        m_join.set(ZERO_WIDTH_JOINER);
        m_join.set(COMBINING_GRAPHEME_JOINER);
    }

    bool extend(char32_t c) const {
        return c < WRITTEN ? m_extend[c] : m_all != nullptr && uset_contains(m_all, static_cast<UChar32>(c)) != 0;
    }

    bool join(char32_t c) const { return c < WRITTEN && m_join[c]; }

private:
    static constexpr int WRITTEN = 0x20000;

    const USet* m_all = nullptr;
    std::bitset<WRITTEN> m_extend;
    std::bitset<WRITTEN> m_join;
};

const Marks& marks() {
    static const Marks all;
    return all;
}

bool isMark(char32_t c) {
    return c >= FIRST_COMBINING && marks().extend(c);
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
        auto& answer = m_answers[hash(around) % m_answers.size()];
        if (std::string_view(answer.around.data(), answer.length) != around) {
            std::ranges::copy(around, answer.around.begin());
            answer.length = around.size();
            answer.isEnd = isCharacterBoundary(around, end - start);
        }
        return answer.isEnd;
    }

private:
    static constexpr int MOST_MARKS_LOOKED_AT = 8;

    /// The characters before the place, and the one behind it. Without any bytes it is no answer yet.
    struct Answer {
        std::array<char, std::size_t{MOST_MARKS_LOOKED_AT + 1} * U8_MAX_LENGTH> around{};
        std::size_t length = 0;
        bool isEnd = true;
    };

    /// By its first and its last bytes, which is all of it but for a few.
    static std::size_t hash(std::string_view around) {
        constexpr std::uint64_t MULTIPLIER = 0x9E3779B97F4A7C15; // spreads the bits over the upper ones
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        if (around.size() < sizeof first) {
            std::ranges::copy(around, reinterpret_cast<char*>(&first));
        } else {
            std::memcpy(&first, around.data(), sizeof first);
            std::memcpy(&last, around.data() + around.size() - sizeof last, sizeof last);
        }
        return (first * MULTIPLIER + last) * MULTIPLIER >> 32U;
    }

    std::array<Answer, 1024> m_answers;
};

} // namespace

bool extendsCharacter(char32_t c) {
    return isMark(c) || isEmojiModifier(c);
}

bool mayJoinWhatFollows(char32_t c) {
    return c >= FIRST_COMBINING && marks().join(c);
}

bool endsCharacter(std::string_view text, std::size_t end) {
    if (end == text.size() || static_cast<unsigned char>(text[end]) < 0x80) {
        return true;
    }
    auto afterNext = end;
    const auto next = nextCodePoint(text, afterNext);
    if (isMark(next)) {
        return false;
    }
    auto lastAt = previousCodePoint(text, end);
    const auto last = nextCodePoint(text, lastAt);
    const auto lastLetter = hangulLetter(last);
    if (const auto nextLetter = hangulLetter(next);
        lastLetter != HangulLetter::None && nextLetter != HangulLetter::None) {
        return !isSameSyllable(lastLetter, nextLetter);
    }
    // Made when a thread first asks: each thread that the program has would be given this table as it starts.
    static thread_local const auto answers = std::make_unique<JoinerAnswers>();
    return (lastLetter == HangulLetter::None && !mayJoinWhatFollows(last)) ||
           answers->endsCharacter(text, end, afterNext);
}

} // namespace zamber::text
