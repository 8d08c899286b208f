// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zamber {

namespace {

constexpr std::string_view ALPHABET = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint32_t INVALID = 0xFF000000;

constexpr auto VALUES = [] {
    std::array<std::uint32_t, 256> values{};
    values.fill(INVALID);
    for (std::size_t i = 0; i < ALPHABET.size(); ++i) {
        values[static_cast<unsigned char>(ALPHABET[i])] = static_cast<std::uint32_t>(i);
    }
    return values;
}();

std::uint32_t valueOf(char c) {
    return VALUES[static_cast<unsigned char>(c)];
}

char byteOf(std::uint32_t bits, unsigned shift) {
    return static_cast<char>((bits >> shift) & 0xFFU);
}

} // namespace

void appendBase64(QByteArray& output, const QByteArray& bytes) {
    const auto oldSize = output.size();
    output.resize(oldSize + (bytes.size() + 2) / 3 * 4);
    char* to = output.data() + oldSize;
    const auto* from = reinterpret_cast<const unsigned char*>(bytes.constData());
    const auto encode = [&to](std::uint32_t bits, int characters) {
        for (int i = 0; i < 4; ++i) {
            *to++ = i < characters ? ALPHABET[(bits >> (18 - 6 * i)) & 0x3FU] : '=';
        }
    };
    auto left = bytes.size();
    for (; left >= 3; left -= 3, from += 3) {
        encode(static_cast<std::uint32_t>(from[0] << 16 | from[1] << 8 | from[2]), 4);
    }
    if (left == 2) {
        encode(static_cast<std::uint32_t>(from[0] << 16 | from[1] << 8), 3);
    } else if (left == 1) {
        encode(static_cast<std::uint32_t>(from[0] << 16), 2);
    }
}

std::optional<QByteArray> fromBase64(std::string_view text) {
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') {
        ++padding;
    }
    text.remove_suffix(padding);

    QByteArray bytes(static_cast<qsizetype>(text.size() * 3 / 4), Qt::Uninitialized);
    char* to = bytes.data();
    std::uint32_t seen = 0;
    std::size_t at = 0;
    for (; at + 4 <= text.size(); at += 4) {
        const auto a = valueOf(text[at]);
        const auto b = valueOf(text[at + 1]);
        const auto c = valueOf(text[at + 2]);
        const auto d = valueOf(text[at + 3]);
        seen |= a | b | c | d;
        const auto bits = a << 18U | b << 12U | c << 6U | d;
        *to++ = byteOf(bits, 16);
        *to++ = byteOf(bits, 8);
        *to++ = byteOf(bits, 0);
    }
    std::uint32_t bits = 0;
    for (unsigned shift = 18; at < text.size(); ++at, shift -= 6) {
        seen |= valueOf(text[at]);
        bits |= valueOf(text[at]) << shift;
    }
    for (unsigned shift = 16; to != bytes.data() + bytes.size(); shift -= 8) {
        *to++ = byteOf(bits, shift);
    }
    if ((seen & INVALID) != 0) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace zamber
