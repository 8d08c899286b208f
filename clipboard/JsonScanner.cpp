// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/JsonScanner.h"

#include "text/ByteBlocks.h"

#include <QByteArrayView>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <utility>
#include <vector>

namespace zamber::clipboard {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::size_t DEEPEST_NESTING = 512;
/// Small enough to be still in the processor's cache when it is looked at.
constexpr std::size_t READ_STEP_BYTES = std::size_t{1} << 18;
constexpr std::size_t BYTES_OF_HEX_ESCAPE = 6;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Nothing that ends a string, starts an escape or must not stand in one.
bool isSpecial(unsigned char byte) {
    return (byte < 0x20) | (byte == '"') | (byte == '\\');
}

/// What may follow a backslash and is an escape with that.
bool isShortEscape(char c) {
    constexpr auto KNOWN = [] {
        std::array<bool, 256> known{};
        for (const char escape : std::string_view("\"\\/bfnrt")) {
            known[static_cast<unsigned char>(escape)] = true;
        }
        return known;
    }();
    return KNOWN[static_cast<unsigned char>(c)];
}

/// Is there a special character in the block but for escaped slashes, of which images have one in every other block?
/// Looks at the byte behind the block, too.
bool needsCare(const char* block) {
    unsigned char found = 0;
    for (std::size_t i = 0; i < text::BYTE_BLOCK; ++i) {
        const auto isEscapedSlash = static_cast<unsigned char>((block[i] == '\\') & (block[i + 1] == '/'));
        found |= static_cast<unsigned char>(isSpecial(static_cast<unsigned char>(block[i])) & ~isEscapedSlash);
    }
    return found != 0;
}

/// The place of the first special character from there on that does not start a short escape, or one near the end of
/// the text.
std::size_t skipShortEscapes(std::string_view text, std::size_t at) {
    while (at + text::BYTE_BLOCK < text.size()) {
        const char* block = text.data() + at;
        std::size_t length = text::BYTE_BLOCK;
        // The slash of an escape may be the first byte of the next block, where it stands for nothing special.
        if (needsCare(block)) {
            for (auto bits = std::uint64_t{text::blockBits(block, isSpecial)}; bits != 0;) {
                const auto place = static_cast<std::size_t>(std::countr_zero(bits));
                if (block[place] != '\\' || !isShortEscape(block[place + 1])) {
                    return at + place;
                }
                bits &= ~(std::uint64_t{3} << place);
                length = std::max(length, place + 2);
            }
        }
        at += length;
    }
    return at;
}

bool isUtf8(std::string_view text) {
    return text::asciiLength(text) == text.size() ||
           QByteArrayView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8();
}

} // namespace

JsonScanner::JsonScanner(Read read)
    : m_read(std::move(read)) {
    skipWord(BYTE_ORDER_MARK);
}

JsonScanner::JsonScanner(std::string_view text)
    : m_text(text) {
    skipWord(BYTE_ORDER_MARK);
}

std::string_view JsonScanner::raw(const JsonValue& value) const {
    return m_text.substr(value.start - m_textStart, value.length);
}

void JsonScanner::letGo() {
    m_needed = m_at;
}

/// Is there a byte to look at? Reads on where need be.
bool JsonScanner::hasMore() {
    if (m_at < m_text.size()) {
        return true;
    }
    if (!m_read) {
        return false;
    }
    // What is let go makes room; a value that is larger than the buffer makes it grow.
    const auto kept = m_text.size() - m_needed;
    if (m_needed > 0) {
        std::copy(m_text.begin() + m_needed, m_text.end(), m_buffer.data());
        m_textStart += m_needed;
        m_at -= m_needed;
        m_needed = 0;
    }
    if (kept + READ_STEP_BYTES > static_cast<std::size_t>(m_buffer.size())) {
        m_buffer.resize(static_cast<qsizetype>(std::max(kept + READ_STEP_BYTES, kept + kept / 2)));
    }
    const auto count = m_read(m_buffer.data() + kept, READ_STEP_BYTES);
    m_text = {m_buffer.constData(), kept + count};
    return m_at < m_text.size();
}

bool JsonScanner::comesNext(std::string_view characters) {
    return hasMore() && characters.find(m_text[m_at]) != std::string_view::npos;
}

/// Skips the word when it comes next, and nothing when it does not.
bool JsonScanner::skipWord(std::string_view word) {
    const auto start = m_textStart + m_at;
    for (const char c : word) {
        if (!hasMore() || m_text[m_at] != c) {
            m_at = start - m_textStart;
            return false;
        }
        ++m_at;
    }
    return true;
}

void JsonScanner::skipBlanks() {
    while (comesNext(" \t\n\r")) {
        ++m_at;
    }
}

bool JsonScanner::take(char expected) {
    skipBlanks();
    if (!hasMore() || m_text[m_at] != expected) {
        return false;
    }
    ++m_at;
    return true;
}

bool JsonScanner::atEnd() {
    skipBlanks();
    return !hasMore();
}

std::optional<JsonValue> JsonScanner::value() {
    using Kind = JsonValue::Kind;
    skipBlanks();
    const auto start = m_textStart + m_at;
    auto kind = Kind::Null;
    std::vector<char> closers;
    while (true) {
        bool isFirst = false;
        if (closers.size() < DEEPEST_NESTING && comesNext("{[")) {
            const bool isObject = m_text[m_at++] == '{';
            kind = closers.empty() ? (isObject ? Kind::Object : Kind::Array) : kind;
            closers.push_back(isObject ? '}' : ']');
            isFirst = true;
        } else if (const auto leaf = scalar()) {
            if (closers.empty()) {
                return leaf;
            }
        } else {
            return std::nullopt;
        }
        // Behind an opening bracket or a member: up to where the next member's value starts.
        while (take(closers.back())) {
            closers.pop_back();
            isFirst = false;
            if (closers.empty()) {
                return JsonValue{kind, start, m_textStart + m_at - start};
            }
        }
        if (!isFirst && !take(',')) {
            return std::nullopt;
        }
        if (closers.back() == '}' && !(take('"') && skipString() && take(':'))) {
            return std::nullopt;
        }
        skipBlanks();
    }
}

std::optional<JsonValue> JsonScanner::scalar() {
    using Kind = JsonValue::Kind;
    const auto start = m_textStart + m_at;
    const auto valueOf = [&](Kind kind) { return JsonValue{kind, start, m_textStart + m_at - start}; };
    if (comesNext("\"")) {
        ++m_at;
        return skipString() ? std::optional(JsonValue{Kind::String, start + 1, m_textStart + m_at - start - 2})
                            : std::nullopt;
    }
    if (skipWord("null")) {
        return valueOf(Kind::Null);
    }
    if (skipWord("true")) {
        return valueOf(Kind::True);
    }
    if (skipWord("false")) {
        return valueOf(Kind::False);
    }
    return skipNumber() ? std::optional(valueOf(Kind::Number)) : std::nullopt;
}

/// Behind the opening quote; up to behind the closing one.
bool JsonScanner::skipString() {
    const auto start = m_textStart + m_at;
    while (hasMore()) {
        m_at = text::findByte(m_text, skipShortEscapes(m_text, m_at), isSpecial);
        if (m_at == m_text.size()) {
            continue;
        }
        if (m_text[m_at] == '"') {
            const auto length = m_textStart + m_at - start;
            ++m_at;
            return isUtf8(raw({JsonValue::Kind::String, start, length}));
        }
        if (m_text[m_at] != '\\' || !skipEscape()) {
            return false;
        }
    }
    return false;
}

bool JsonScanner::skipEscape() {
    ++m_at;
    if (!comesNext("u")) {
        const bool isKnown = hasMore() && isShortEscape(m_text[m_at]);
        m_at += isKnown ? 1 : 0;
        return isKnown;
    }
    for (std::size_t i = 2; i < BYTES_OF_HEX_ESCAPE; ++i) {
        ++m_at;
        if (!comesNext("0123456789abcdefABCDEF")) {
            return false;
        }
    }
    ++m_at;
    return true;
}

bool JsonScanner::skipDigits() {
    if (!comesNext("0123456789")) {
        return false;
    }
    while (hasMore() && isDigit(m_text[m_at])) {
        ++m_at;
    }
    return true;
}

bool JsonScanner::skipNumber() {
    m_at += comesNext("-") ? 1 : 0;
    if (comesNext("0")) {
        ++m_at;
    } else if (!skipDigits()) {
        return false;
    }
    if (comesNext(".")) {
        ++m_at;
        if (!skipDigits()) {
            return false;
        }
    }
    if (comesNext("eE")) {
        ++m_at;
        m_at += comesNext("+-") ? 1 : 0;
        return skipDigits();
    }
    return true;
}

std::optional<double> jsonNumber(std::string_view rawNumber) {
#ifdef __cpp_lib_to_chars
    double number = 0;
    const auto* end = rawNumber.data() + rawNumber.size();
    const auto [parsedEnd, error] = std::from_chars(rawNumber.data(), end, number);
    const bool isNumber = error == std::errc{} && parsedEnd == end;
#else // a standard library without fractions
    bool isNumber = false;
    const double number = QByteArrayView(rawNumber.data(), rawNumber.size()).toDouble(&isNumber);
#endif
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace zamber::clipboard
