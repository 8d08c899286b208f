// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace zamber {

/// So many bytes at a time, with no way out in between: the compiler makes a few vector instructions of it.
inline constexpr std::size_t BYTE_BLOCK = 32;

/// The place of the first byte from there on that the predicate (of an `unsigned char`, free of branches) holds for,
/// or the text's size.
template <class Predicate>
std::size_t findByte(std::string_view text, std::size_t from, Predicate predicate) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    for (; from + BYTE_BLOCK <= text.size(); from += BYTE_BLOCK) {
        unsigned char found = 0;
        for (std::size_t i = 0; i < BYTE_BLOCK; ++i) {
            found |= static_cast<unsigned char>(predicate(bytes[from + i]));
        }
        if (found != 0) {
            break;
        }
    }
    while (from < text.size() && !predicate(bytes[from])) {
        ++from;
    }
    return from;
}

/// How many bytes of ASCII the text starts with.
inline std::size_t asciiLength(std::string_view text) {
    return findByte(text, 0, [](unsigned char byte) { return byte >= 0x80; });
}

} // namespace zamber
