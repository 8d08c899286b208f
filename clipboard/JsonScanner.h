// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

namespace zamber::clipboard {

/// One value of a JSON text, by its place.
struct JsonValue {
    enum class Kind { Null, False, True, Number, String, Object, Array };

    Kind kind;
    /// Byte offset from the start of the text; of a string, behind its opening quote.
    std::size_t start;
    /// In bytes; of a string, without its quotes.
    std::size_t length;
};

/// Reads a JSON text (RFC 8259, UTF-8, a byte order mark tolerated) from front to back, and of it no more at a time
/// than what has not been let go. Every value that it gives out is well formed.
class JsonScanner {
public:
    /// Fills up to `size` bytes and tells how many; 0 at the end of the text.
    using Read = std::function<std::size_t(char* to, std::size_t size)>;

    explicit JsonScanner(Read read);
    /// The text must outlive the scanner.
    explicit JsonScanner(std::string_view text);

    JsonScanner(JsonScanner&&) = default;
    JsonScanner& operator=(JsonScanner&&) = default;
    ~JsonScanner() = default;

    /// Skips white space, and the character when it comes next. Was it there?
    bool take(char expected);
    /// The next value, whole, or nothing when none or a broken one comes next, or one nested deeper than 512.
    std::optional<JsonValue> value();
    /// Does nothing but white space follow?
    bool atEnd();

    /// A value as it stands in the text. Valid until the scanner goes on.
    std::string_view raw(const JsonValue& value) const;
    /// The values so far are not needed any more.
    void letGo();

private:
    bool hasMore();
    bool comesNext(std::string_view characters);
    bool skipWord(std::string_view word);
    void skipBlanks();
    std::optional<JsonValue> scalar();
    bool skipString();
    bool skipEscape();
    bool skipDigits();
    bool skipNumber();

    Read m_read;
    QByteArray m_buffer;
    /// What is at hand of the text, which starts at this offset of it.
    std::string_view m_text;
    std::size_t m_textStart = 0;
    std::size_t m_at = 0;
    std::size_t m_needed = 0;
};

/// The value of a number as the nearest double, or nothing when it is too large or too small for one.
std::optional<double> jsonNumber(std::string_view rawNumber);

} // namespace zamber::clipboard
