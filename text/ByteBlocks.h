// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zamber::text {

/// A loop over so many bytes that does not end early is made into a few vector instructions by the compiler.
inline constexpr std::size_t BYTE_BLOCK = 32;

/// Is there a byte in the block that the predicate (of an `unsigned char`, free of branches) holds for?
template <class Predicate>
bool blockHas(const char* block, Predicate predicate) {
    unsigned char found = 0;
    for (std::size_t i = 0; i < BYTE_BLOCK; ++i) {
        found |= static_cast<unsigned char>(predicate(static_cast<unsigned char>(block[i])));
    }
    return found != 0;
}

/// For each byte of a block 1 or 0.
using BlockMarks = std::array<unsigned char, BYTE_BLOCK>;

/// A bit for each mark, the lowest for the first.
inline std::uint32_t markBits(const BlockMarks& marks) {
    std::uint64_t bits = 0;
    for (std::size_t at = 0; at < BYTE_BLOCK; at += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, marks.data() + at, sizeof word);
        word = std::endian::native == std::endian::little ? word : std::byteswap(word);
        bits |= (word * 0x0102040810204080U >> 56U) << at; // the lowest bit of each byte
    }
    return static_cast<std::uint32_t>(bits);
}

/// A bit for each byte of the block: does the predicate hold for it?
template <class Predicate>
std::uint32_t blockBits(const char* block, Predicate predicate) {
    BlockMarks marks; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
    for (std::size_t i = 0; i < BYTE_BLOCK; ++i) {
        marks[i] = static_cast<unsigned char>(predicate(static_cast<unsigned char>(block[i])));
    }
    return markBits(marks);
}

/// The place of the first such byte from there on, or the text's size.
template <class Predicate>
std::size_t findByte(std::string_view text, std::size_t from, Predicate predicate) {
    for (; from + BYTE_BLOCK <= text.size(); from += BYTE_BLOCK) {
        if (blockHas(text.data() + from, predicate)) {
            return from + static_cast<std::size_t>(std::countr_zero(blockBits(text.data() + from, predicate)));
        }
    }
    while (from < text.size() && !predicate(static_cast<unsigned char>(text[from]))) {
        ++from;
    }
    return from;
}

/// How many bytes of ASCII the text starts with.
inline std::size_t asciiLength(std::string_view text) {
    return findByte(text, 0, [](unsigned char byte) { return byte >= 0x80; });
}

} // namespace zamber::text
