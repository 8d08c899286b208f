// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/EmojiRuns.h"

#include "text/CodePoints.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <optional>

namespace zamber::text {

namespace {

constexpr char16_t FIRST_EMOJI_THAT_IS_NO_KEY = 0x00A9;
constexpr auto JOINER = static_cast<UChar32>(ZERO_WIDTH_JOINER);
constexpr UChar32 KEYCAP = 0x20E3;
constexpr UChar32 TEXT_SELECTOR = 0xFE0E;
constexpr UChar32 PICTURE_SELECTOR = 0xFE0F;
constexpr UChar32 FIRST_TAG = 0xE0020;
constexpr UChar32 LAST_TAG = 0xE007F;

bool is(UChar32 character, UProperty property) {
    return u_hasBinaryProperty(character, property) != 0;
}

bool isKey(UChar32 character) {
    return (character >= '0' && character <= '9') || character == '#' || character == '*';
}

class Reader {
public:
    explicit Reader(std::u16string_view text)
        : m_text(text) {}

    bool isAtEnd() const { return m_at == m_text.size(); }
    std::size_t at() const { return m_at; }

    /// The next character, or 0 at the end.
    UChar32 peek() const {
        Reader ahead = *this;
        return ahead.next();
    }

    UChar32 next() {
        if (isAtEnd()) {
            return 0;
        }
        UChar32 character = 0;
        U16_NEXT(m_text.data(), m_at, m_text.size(), character);
        return character;
    }

    bool skip(UChar32 expected) {
        const bool isThere = peek() == expected;
        if (isThere) {
            next();
        }
        return isThere;
    }

    void skipPlainText() {
        while (!isAtEnd() && m_text[m_at] < FIRST_EMOJI_THAT_IS_NO_KEY && !isKey(m_text[m_at])) {
            ++m_at;
        }
    }

private:
    std::u16string_view m_text;
    std::size_t m_at = 0;
};

/// Reads a key that is on a keycap.
bool readKeycap(Reader& reader) {
    Reader ahead = reader;
    const bool isKeycap = isKey(ahead.next()) && ahead.skip(PICTURE_SELECTOR) && ahead.skip(KEYCAP);
    if (isKeycap) {
        reader = ahead;
    }
    return isKeycap;
}

/// Reads two letters that stand for a country.
bool readFlag(Reader& reader) {
    Reader ahead = reader;
    const bool isFlag =
        is(ahead.next(), UCHAR_REGIONAL_INDICATOR) && is(ahead.peek(), UCHAR_REGIONAL_INDICATOR) && ahead.next() != 0;
    if (isFlag) {
        reader = ahead;
    }
    return isFlag;
}

/// Reads a character with all that modifies it: a selector, a skin tone, the tags of a region's flag.
EmojiForm readModified(Reader& reader) {
    const UChar32 base = reader.next();
    EmojiForm form = is(base, UCHAR_EMOJI_PRESENTATION) ? EmojiForm::Picture : EmojiForm::Text;
    if (reader.skip(TEXT_SELECTOR)) {
        form = EmojiForm::Text;
    } else if (reader.skip(PICTURE_SELECTOR)) {
        form = EmojiForm::Picture;
    }
    if (is(base, UCHAR_EMOJI_MODIFIER_BASE) && is(reader.peek(), UCHAR_EMOJI_MODIFIER)) {
        reader.next();
        form = EmojiForm::Picture;
    }
    while (reader.peek() >= FIRST_TAG && reader.peek() <= LAST_TAG) {
        reader.next();
        form = EmojiForm::Picture;
    }
    return form;
}

std::optional<EmojiForm> readEmoji(Reader& reader) {
    if (readKeycap(reader) || readFlag(reader)) {
        return EmojiForm::Picture;
    }
    const UChar32 first = reader.peek();
    if (isKey(first) || !is(first, UCHAR_EMOJI) || is(first, UCHAR_REGIONAL_INDICATOR)) {
        reader.next();
        return std::nullopt;
    }
    EmojiForm form = readModified(reader);
    for (Reader ahead = reader; ahead.skip(JOINER) && is(ahead.peek(), UCHAR_EXTENDED_PICTOGRAPHIC);) {
        readModified(ahead);
        reader = ahead;
        form = EmojiForm::Picture;
    }
    return form;
}

} // namespace

std::vector<EmojiRun> emojiRuns(std::u16string_view text) {
    std::vector<EmojiRun> runs;
    Reader reader(text);
    for (reader.skipPlainText(); !reader.isAtEnd(); reader.skipPlainText()) {
        const std::size_t start = reader.at();
        const auto form = readEmoji(reader);
        if (!form) {
            continue;
        }
        if (!runs.empty() && runs.back().form == *form && runs.back().start + runs.back().length == start) {
            runs.back().length += reader.at() - start;
        } else {
            runs.push_back({start, reader.at() - start, *form});
        }
    }
    return runs;
}

} // namespace zamber::text
