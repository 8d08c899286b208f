// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionText.h"

#include <QUtf8StringView>

#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace zamber::freedesktop::selection {

namespace {

struct Character {
    UChar32 value;       ///< negative where the bytes are broken
    std::int32_t length; ///< of the character, or of the broken sequence
};

Character nextCharacter(const char* text, std::int32_t left) {
    std::int32_t length = 0;
    UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // the macro's own arithmetic
    U8_NEXT(text, length, left, character);
#pragma GCC diagnostic pop
    return {character, length};
}

bool isAscii(const QByteArray& bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

} // namespace

QByteArray repairedUtf8(const QByteArray& bytes) {
    if (QUtf8StringView(bytes).isValidUtf8()) {
        return bytes;
    }
    QByteArray repaired;
    repaired.reserve(bytes.size());
    const char* const text = bytes.constData();
    for (qsizetype start = 0; start < bytes.size();) {
        // ICU's offsets are 32 bits wide: four bytes are all that a character can have.
        const auto left = static_cast<std::int32_t>(std::min<qsizetype>(bytes.size() - start, U8_MAX_LENGTH));
        const auto [character, length] = nextCharacter(text + start, left);
        repaired += character < 0 ? QByteArrayView("\xef\xbf\xbd") : QByteArrayView(text + start, length);
        start += length;
    }
    repaired.squeeze();
    return repaired;
}

QByteArray utf8FromLatin1(const QByteArray& bytes) {
    const auto beyondAscii = std::ranges::count_if(bytes, [](char byte) { return static_cast<signed char>(byte) < 0; });
    if (beyondAscii == 0) {
        return bytes;
    }
    QByteArray converted(bytes.size() + beyondAscii, Qt::Uninitialized);
    char* end = converted.data();
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x80) {
            *end++ = character;
        } else {
            *end++ = static_cast<char>(0xc0 | (byte >> 6));
            *end++ = static_cast<char>(0x80 | (byte & 0x3f));
        }
    }
    return converted;
}

QByteArray latin1FromUtf8(const QByteArray& text) {
    if (isAscii(text)) {
        return text;
    }
    QByteArray converted(text.size(), Qt::Uninitialized);
    char* end = converted.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x80) {
            *end++ = text[i];
        } else if ((byte == 0xc2 || byte == 0xc3) && i + 1 < text.size()) {
            *end++ = static_cast<char>(((byte & 0x03) << 6) | (static_cast<unsigned char>(text[++i]) & 0x3f));
        } else if ((byte & 0xc0) != 0x80) {
            *end++ = '?'; // once a character: its following bytes are passed over
        }
    }
    converted.truncate(end - converted.constData());
    converted.squeeze();
    return converted;
}

} // namespace zamber::freedesktop::selection
