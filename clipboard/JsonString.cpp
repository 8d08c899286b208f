// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/JsonString.h"

#include "text/ByteBlocks.h"

#include <cstring>

namespace zamber::clipboard {

namespace {

constexpr std::string_view HEX_DIGITS = "0123456789abcdef";
constexpr std::string_view ESCAPE_NAMES = "bfnrt";
constexpr std::string_view ESCAPED_CONTROLS = "\b\f\n\r\t";

bool isSpecial(unsigned char byte) {
    return (byte < 0x20) | (byte == '"') | (byte == '\\');
}

} // namespace

std::size_t jsonStringLength(std::string_view text) {
    const auto surplus = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        const bool hasName = (byte >= '\b') & (byte <= '\r') & (byte != '\v');
        return static_cast<unsigned char>((byte < 0x20) * 5 - hasName * 4 + (byte == '"') + (byte == '\\'));
    };
    std::size_t length = text.size();
    std::size_t at = 0;
    for (; at + text::BYTE_BLOCK <= text.size(); at += text::BYTE_BLOCK) {
        unsigned char sum = 0;
        for (std::size_t i = 0; i < text::BYTE_BLOCK; ++i) {
            sum = static_cast<unsigned char>(sum + surplus(text[at + i]));
        }
        length += sum;
    }
    for (; at < text.size(); ++at) {
        length += surplus(text[at]);
    }
    return length;
}

char* writeJsonString(char* to, std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto plain = text::findByte(text, at, isSpecial) - at;
        std::memcpy(to, text.data() + at, plain);
        to += plain;
        at += plain;
        if (at == text.size()) {
            break;
        }
        *to++ = '\\';
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte >= 0x20) {
            *to++ = text[at];
        } else if (const auto name = ESCAPED_CONTROLS.find(text[at]); name != std::string_view::npos) {
            *to++ = ESCAPE_NAMES[name];
        } else {
            for (const char c : {'u', '0', '0', HEX_DIGITS[byte >> 4U], HEX_DIGITS[byte & 0xFU]}) {
                *to++ = c;
            }
        }
    }
    return to;
}

} // namespace zamber::clipboard
