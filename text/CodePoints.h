// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <unicode/utf8.h>

#include <cstddef>
#include <string_view>

namespace zamber::text {

inline constexpr char32_t ZERO_WIDTH_JOINER = 0x200D;

/// Reads the code point at a byte offset below the size and moves the offset behind it. Whatever is not UTF-8 reads
/// as U+FFFD.
inline char32_t nextCodePoint(std::string_view text, std::size_t& at) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    UChar32 codePoint = 0;
    U8_NEXT_OR_FFFD(bytes, at, text.size(), codePoint);
    return static_cast<char32_t>(codePoint);
}

/// Appends a code point (no surrogate) in UTF-8.
inline void appendCodePoint(QByteArray& text, char32_t codePoint) {
    char bytes[U8_MAX_LENGTH];
    int length = 0;
    U8_APPEND_UNSAFE(bytes, length, codePoint);
    text.append(bytes, length);
}

/// The start of the code point that ends before a byte offset above 0.
inline std::size_t previousCodePoint(std::string_view text, std::size_t at) {
    const std::size_t lowest = at > 4 ? at - 4 : 0;
    std::size_t start = at - 1;
    while (start > lowest && (static_cast<unsigned char>(text[start]) & 0xC0U) == 0x80U) {
        --start;
    }
    return start;
}

} // namespace zamber::text
