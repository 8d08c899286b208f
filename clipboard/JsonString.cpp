// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/JsonString.h"

#include "text/ByteBlocks.h"
#include "text/CodePoints.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

namespace zamber::clipboard {

namespace {

constexpr std::string_view HEX_DIGITS = "0123456789abcdef";
constexpr std::string_view ESCAPE_NAMES = "bfnrt";
constexpr std::string_view ESCAPED_CONTROLS = "\b\f\n\r\t";

bool isSpecial(unsigned char byte) {
    return (byte < 0x20) | (byte == '"') | (byte == '\\');
}

/// The four hexadecimal digits of an escape, or nothing.
std::optional<char32_t> hexUnit(std::string_view digits) {
    unsigned unit = 0;
    const auto* end = digits.data() + digits.size();
    const auto [parsedEnd, error] = std::from_chars(digits.data(), end, unit, 16);
    if (digits.size() != 4 || error != std::errc{} || parsedEnd != end) {
        return std::nullopt;
    }
    return unit;
}

/// A code point that is written as one unit or as two, which are then skipped.
char32_t takeHexEscape(std::string_view& rawString) {
    char32_t codePoint = hexUnit(rawString.substr(2, 4)).value_or(0xFFFD);
    rawString.remove_prefix(6);
    if (codePoint >= 0xD800 && codePoint <= 0xDBFF && rawString.starts_with("\\u")) {
        const char32_t low = hexUnit(rawString.substr(2, 4)).value_or(0);
        if (low >= 0xDC00 && low <= 0xDFFF) {
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10U) + (low - 0xDC00);
            rawString.remove_prefix(6);
        }
    }
    return codePoint >= 0xD800 && codePoint <= 0xDFFF ? 0xFFFD : codePoint;
}

} // namespace

QByteArray repairedUtf8(const QByteArray& text) {
    const std::string_view bytes(text.constData(), static_cast<std::size_t>(text.size()));
    if (text::asciiLength(bytes) == bytes.size() || text.isValidUtf8()) {
        return text;
    }
    QByteArray repaired;
    for (std::size_t at = 0; at < bytes.size();) {
        text::appendCodePoint(repaired, text::nextCodePoint(bytes, at));
    }
    return repaired;
}

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

QByteArray jsonText(std::string_view rawString) {
    // No escape is shorter than what it stands for.
    QByteArray text(static_cast<qsizetype>(rawString.size()), Qt::Uninitialized);
    char* to = text.data();
    while (!rawString.empty()) {
        const auto plain = text::findByte(rawString, 0, [](unsigned char byte) { return byte == '\\'; });
        std::memcpy(to, rawString.data(), plain);
        to += plain;
        rawString.remove_prefix(plain);
        if (rawString.empty()) {
            break;
        }
        const char escape = rawString[1];
        if (escape == 'u') {
            QByteArray character;
            text::appendCodePoint(character, takeHexEscape(rawString));
            to = std::ranges::copy(character, to).out;
            continue;
        }
        const auto name = ESCAPE_NAMES.find(escape);
        *to++ = name == std::string_view::npos ? escape : ESCAPED_CONTROLS[name];
        rawString.remove_prefix(2);
    }
    text.truncate(to - text.constData());
    return text;
}

} // namespace zamber::clipboard
