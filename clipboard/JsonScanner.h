// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <optional>
#include <string_view>

namespace zamber {

/// One value of a JSON text, in place.
struct JsonValue {
    enum class Kind { Null, False, True, Number, String, Object, Array };

    Kind kind;
    /// As it stands in the text; a string without its quotes.
    std::string_view raw;
};

/// Reads a JSON text (RFC 8259, UTF-8, a byte order mark tolerated) from front to back without copying it. Every
/// value that it gives out is well formed.
class JsonScanner {
public:
    explicit JsonScanner(std::string_view text);

    /// Skips white space, and the character when it comes next. Was it there?
    bool take(char expected);
    /// The next value, whole, or nothing when none or a broken one comes next, or one nested deeper than 512.
    std::optional<JsonValue> value();
    /// Does nothing but white space follow?
    bool atEnd();

private:
    void skipBlanks();
    std::optional<JsonValue> scalar();
    bool skipString();
    bool skipEscape();
    bool skipDigits();
    bool skipNumber();

    std::string_view m_text;
    std::size_t m_at = 0;
};

/// The characters (UTF-8) that the string stands for. Half a surrogate pair becomes U+FFFD.
QByteArray jsonText(std::string_view rawString);

/// The value of a number as the nearest double, or nothing when it is too large or too small for one.
std::optional<double> jsonNumber(std::string_view rawNumber);

/// Appends the text (UTF-8) as a JSON string, quotes included. What is not UTF-8 becomes U+FFFD.
void appendJsonString(QByteArray& output, std::string_view text);

} // namespace zamber
