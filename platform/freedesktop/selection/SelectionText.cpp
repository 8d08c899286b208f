// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionText.h"

#include <QString>

#include <algorithm>

namespace zamber::freedesktop::selection {

namespace {

bool isAscii(const QByteArray& bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

} // namespace

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
