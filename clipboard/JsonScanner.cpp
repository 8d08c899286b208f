// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/JsonScanner.h"

#include "clipboard/CodePoints.h"

#include <charconv>
#include <vector>

namespace zamber {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::size_t DEEPEST_NESTING = 512;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isUtf8(std::string_view text, std::size_t& at) {
    const auto start = at;
    return nextCodePoint(text, at) != 0xFFFD || text.substr(start, at - start) == "\uFFFD";
}

/// How many bytes from there on stand for themselves in a string.
std::size_t plainLength(std::string_view text, std::size_t from) {
    const auto isPlain = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x20 && byte < 0x80 && byte != '"' && byte != '\\';
    };
    auto at = from;
    while (at < text.size() && isPlain(text[at])) {
        ++at;
    }
    return at - from;
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

} // namespace

JsonScanner::JsonScanner(std::string_view text)
    : m_text(text) {
    if (m_text.starts_with(BYTE_ORDER_MARK)) {
        m_at = BYTE_ORDER_MARK.size();
    }
}

void JsonScanner::skipBlanks() {
    while (m_at < m_text.size() && std::string_view(" \t\n\r").find(m_text[m_at]) != std::string_view::npos) {
        ++m_at;
    }
}

bool JsonScanner::take(char expected) {
    skipBlanks();
    if (m_at == m_text.size() || m_text[m_at] != expected) {
        return false;
    }
    ++m_at;
    return true;
}

bool JsonScanner::atEnd() {
    skipBlanks();
    return m_at == m_text.size();
}

std::optional<JsonValue> JsonScanner::value() {
    using Kind = JsonValue::Kind;
    skipBlanks();
    const auto start = m_at;
    std::vector<char> closers;
    while (true) {
        if (closers.size() < DEEPEST_NESTING && (take('{') || take('['))) {
            closers.push_back(m_text[m_at - 1] == '{' ? '}' : ']');
        } else if (const auto leaf = scalar()) {
            if (closers.empty()) {
                return leaf;
            }
        } else {
            return std::nullopt;
        }
        // Behind an opening bracket or a member: up to where the next member's value starts.
        bool isFirst = m_text[m_at - 1] == '{' || m_text[m_at - 1] == '[';
        while (take(closers.back())) {
            closers.pop_back();
            isFirst = false;
            if (closers.empty()) {
                const auto kind = m_text[start] == '{' ? Kind::Object : Kind::Array;
                return JsonValue{kind, m_text.substr(start, m_at - start)};
            }
        }
        if (!isFirst && !take(',')) {
            return std::nullopt;
        }
        if (closers.back() == '}' && !(take('"') && skipString() && take(':'))) {
            return std::nullopt;
        }
    }
}

std::optional<JsonValue> JsonScanner::scalar() {
    using Kind = JsonValue::Kind;
    if (take('"')) {
        const auto start = m_at;
        if (!skipString()) {
            return std::nullopt;
        }
        return JsonValue{Kind::String, m_text.substr(start, m_at - 1 - start)};
    }
    const auto start = m_at;
    const auto rest = m_text.substr(m_at);
    if (rest.starts_with("null") || rest.starts_with("true")) {
        m_at += 4;
        return JsonValue{rest[0] == 'n' ? Kind::Null : Kind::True, m_text.substr(start, 4)};
    }
    if (rest.starts_with("false")) {
        m_at += 5;
        return JsonValue{Kind::False, m_text.substr(start, 5)};
    }
    if (!skipNumber()) {
        return std::nullopt;
    }
    return JsonValue{Kind::Number, m_text.substr(start, m_at - start)};
}

bool JsonScanner::skipString() {
    while ((m_at += plainLength(m_text, m_at)) < m_text.size()) {
        const auto byte = static_cast<unsigned char>(m_text[m_at]);
        if (byte == '"') {
            ++m_at;
            return true;
        }
        if (byte == '\\') {
            if (!skipEscape()) {
                return false;
            }
        } else if (byte >= 0x80) {
            if (!isUtf8(m_text, m_at)) {
                return false;
            }
        } else {
            return false;
        }
    }
    return false;
}

bool JsonScanner::skipEscape() {
    const auto escape = m_text.substr(m_at, 6);
    if (escape.size() < 2) {
        return false;
    }
    if (escape[1] == 'u') {
        m_at += 6;
        return hexUnit(escape.substr(2)).has_value();
    }
    m_at += 2;
    return std::string_view("\"\\/bfnrt").find(escape[1]) != std::string_view::npos;
}

bool JsonScanner::skipDigits() {
    const auto start = m_at;
    while (m_at < m_text.size() && isDigit(m_text[m_at])) {
        ++m_at;
    }
    return m_at > start;
}

bool JsonScanner::skipNumber() {
    const auto comesNext = [this](std::string_view characters) {
        return m_at < m_text.size() && characters.find(m_text[m_at]) != std::string_view::npos;
    };
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

QByteArray jsonText(std::string_view rawString) {
    QByteArray text;
    text.reserve(static_cast<qsizetype>(rawString.size()));
    while (!rawString.empty()) {
        const auto plain = rawString.substr(0, rawString.find('\\'));
        text.append(plain.data(), static_cast<qsizetype>(plain.size()));
        rawString.remove_prefix(plain.size());
        if (rawString.empty()) {
            break;
        }
        const char escape = rawString[1];
        if (escape != 'u') {
            constexpr std::string_view NAMES = "bfnrt";
            constexpr std::string_view CONTROLS = "\b\f\n\r\t";
            const auto index = NAMES.find(escape);
            text.append(index == std::string_view::npos ? escape : CONTROLS[index]);
            rawString.remove_prefix(2);
            continue;
        }
        char32_t codePoint = hexUnit(rawString.substr(2, 4)).value_or(0xFFFD);
        rawString.remove_prefix(6);
        if (codePoint >= 0xD800 && codePoint <= 0xDBFF && rawString.starts_with("\\u")) {
            const char32_t low = hexUnit(rawString.substr(2, 4)).value_or(0);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                codePoint = 0x10000 + ((codePoint - 0xD800) << 10U) + (low - 0xDC00);
                rawString.remove_prefix(6);
            }
        }
        const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
        appendCodePoint(text, isSurrogate ? 0xFFFD : codePoint);
    }
    return text;
}

std::optional<double> jsonNumber(std::string_view rawNumber) {
    double number = 0;
    const auto* end = rawNumber.data() + rawNumber.size();
    const auto [parsedEnd, error] = std::from_chars(rawNumber.data(), end, number);
    if (error != std::errc{} || parsedEnd != end) {
        return std::nullopt;
    }
    return number;
}

void appendJsonString(QByteArray& output, std::string_view text) {
    output.append('"');
    std::size_t written = 0;
    const auto flush = [&](std::size_t upTo) {
        output.append(text.data() + written, static_cast<qsizetype>(upTo - written));
    };
    for (std::size_t at = 0; (at += plainLength(text, at)) < text.size();) {
        const auto start = at;
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte >= 0x80) {
            if (isUtf8(text, at)) {
                continue;
            }
            flush(start);
            output.append("\uFFFD");
        } else {
            ++at;
            flush(start);
            if (byte >= 0x20) {
                output.append('\\').append(static_cast<char>(byte));
            } else {
                constexpr std::string_view HEX = "0123456789abcdef";
                output.append("\\u00").append(HEX[byte >> 4U]).append(HEX[byte & 0xFU]);
            }
        }
        written = at;
    }
    flush(text.size());
    output.append('"');
}

} // namespace zamber
