// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ByteBlocks.h"
#include "clipboard/CodePoints.h"

#include <QByteArrayView>

#include <array>
#include <string_view>

namespace zamber {

/// Writes a text (UTF-8) as a JSON string, quotes included, piece by piece to `put`. What is not UTF-8 becomes
/// U+FFFD.
template <class Put>
void writeJsonString(std::string_view text, Put put) {
    constexpr std::string_view REPLACEMENT = "\uFFFD";
    constexpr std::string_view HEX_DIGITS = "0123456789abcdef";
    const bool isUtf8 = asciiLength(text) == text.size() ||
                        QByteArrayView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8();
    const auto needsCare = [isUtf8](unsigned char byte) {
        return static_cast<unsigned char>((byte < 0x20) | (byte == '"') | (byte == '\\') | (byte >= 0x80 && !isUtf8));
    };
    put("\"");
    std::size_t written = 0;
    for (std::size_t at = 0; (at = findByte(text, at, needsCare)) < text.size();) {
        const auto start = at;
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte >= 0x80) {
            if (nextCodePoint(text, at) != 0xFFFD || text.substr(start, at - start) == REPLACEMENT) {
                continue;
            }
            put(text.substr(written, start - written));
            put(REPLACEMENT);
        } else {
            ++at;
            put(text.substr(written, start - written));
            if (byte >= 0x20) {
                const std::array<char, 2> escape = {'\\', static_cast<char>(byte)};
                put(std::string_view(escape.data(), escape.size()));
            } else {
                const std::array<char, 6> escape = {
                    '\\', 'u', '0', '0', HEX_DIGITS[byte >> 4U], HEX_DIGITS[byte & 0xFU]};
                put(std::string_view(escape.data(), escape.size()));
            }
        }
        written = at;
    }
    put(text.substr(written));
    put("\"");
}

} // namespace zamber
