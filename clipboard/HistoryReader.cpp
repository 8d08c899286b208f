// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/HistoryReader.h"

#include "clipboard/Base64.h"

#include <QByteArray>

#include <algorithm>
#include <boost/json/basic_parser_impl.hpp>
#include <boost/system/error_code.hpp>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace zamber::clipboard {

namespace {

namespace json = boost::json;
using ErrorCode = boost::system::error_code; // newer Boost has no name of its own for it in json

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
/// The array, the record, and the levels that a value of the record may have.
constexpr std::size_t DEEPEST_NESTING = 2 + 512;
/// Small enough to be still in the processor's cache when it is parsed.
constexpr std::size_t READ_STEP_BYTES = std::size_t{1} << 18;
/// No key or type that has a meaning is longer. Of longer ones only the beginning is kept.
constexpr std::size_t LONGEST_NAME_BYTES = 16;

/// The nearest double, 0 where the number is too small for one; nothing when it is too large. The parser's own value,
/// `roughly`, is not always the nearest.
std::optional<double> numberFrom(std::string_view text, double roughly) {
#ifdef __cpp_lib_to_chars
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = result.ec == std::errc{};
#else // a standard library whose from_chars has no fractions
    bool isNumber = false;
    const double number = QByteArrayView(text.data(), text.size()).toDouble(&isNumber);
#endif
    if (!isNumber && std::abs(roughly) < 1) {
        return 0.0;
    }
    return isNumber ? std::optional(number) : std::nullopt;
}

/// What the JSON parser calls as it goes through the text. Strings and numbers come in parts.
class HistoryHandler {
public:
    // NOLINTBEGIN(readability-identifier-naming): the parser's names.
    static constexpr std::size_t max_object_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_array_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_key_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_string_size = static_cast<std::size_t>(-1);

    bool on_document_begin(ErrorCode& /*error*/) { return true; }
    bool on_document_end(ErrorCode& /*error*/) { return true; }

    bool on_array_begin(ErrorCode& error) { return begin(m_depth != RECORDS, error); }
    bool on_array_end(std::size_t /*size*/, ErrorCode& /*error*/) {
        end();
        return true;
    }
    bool on_object_begin(ErrorCode& error) {
        if (m_depth == RECORDS) {
            m_record.clear();
        }
        return begin(m_depth != TOP, error);
    }
    bool on_object_end(std::size_t /*size*/, ErrorCode& /*error*/) {
        end();
        if (m_depth == RECORDS) {
            addItem();
        }
        return true;
    }

    bool on_key_part(json::string_view part, std::size_t /*size*/, ErrorCode& /*error*/) {
        if (m_depth == MEMBERS) {
            appendName(m_key, part);
        }
        return true;
    }
    bool on_key(json::string_view part, std::size_t size, ErrorCode& error) {
        on_key_part(part, size, error);
        if (m_depth == MEMBERS) {
            m_record.forget(m_key);
        }
        return true;
    }
    bool on_string_part(json::string_view part, std::size_t /*size*/, ErrorCode& error) {
        if (m_depth == MEMBERS && m_key == "value") {
            m_record.value.append(part.data(), part.size());
        } else if (m_depth == MEMBERS && m_key == "type") {
            appendName(m_record.type, part);
        }
        return isInRecord(error);
    }
    bool on_string(json::string_view part, std::size_t size, ErrorCode& error) {
        on_string_part(part, size, error);
        m_record.hasValue |= m_depth == MEMBERS && m_key == "value";
        return valueEnded(error);
    }
    bool on_number_part(json::string_view part, ErrorCode& error) {
        if (m_depth == MEMBERS && m_key == "timestamp") {
            m_number.append(part.data(), part.size());
        }
        return isInRecord(error);
    }
    bool on_int64(std::int64_t value, json::string_view part, ErrorCode& error) {
        return numberEnded(static_cast<double>(value), part, error);
    }
    bool on_uint64(std::uint64_t value, json::string_view part, ErrorCode& error) {
        return numberEnded(static_cast<double>(value), part, error);
    }
    bool on_double(double value, json::string_view part, ErrorCode& error) { return numberEnded(value, part, error); }
    bool on_bool(bool value, ErrorCode& error) {
        if (m_depth == MEMBERS && m_key == "isPinned") {
            m_record.isPinned = value;
        }
        return valueEnded(error);
    }
    bool on_null(ErrorCode& error) { return valueEnded(error); }
    bool on_comment_part(json::string_view /*part*/, ErrorCode& /*error*/) { return true; }
    bool on_comment(json::string_view /*part*/, ErrorCode& /*error*/) { return true; }
    // NOLINTEND(readability-identifier-naming)

    QList<ClipboardItem> takeItems() { return std::move(m_items); }

private:
    /// How many arrays and objects are open: outside, between the records, between the members of one.
    enum Depth : std::size_t { TOP, RECORDS, MEMBERS };

    struct Record {
        std::string type;
        /// Of an image, its Base64. Keeps its room from one record to the next.
        std::string value;
        bool hasValue = false;
        std::optional<double> timestamp;
        bool isPinned = false;

        void clear() {
            type.clear();
            value.clear();
            hasValue = false;
            timestamp.reset();
            isPinned = false;
        }
        /// When a key turns up twice, the last value counts, also when it is of the wrong kind.
        void forget(std::string_view key) {
            if (key == "type") {
                type.clear();
            } else if (key == "value") {
                value.clear();
                hasValue = false;
            } else if (key == "timestamp") {
                timestamp.reset();
            } else if (key == "isPinned") {
                isPinned = false;
            }
        }
    };

    static void appendName(std::string& name, json::string_view part) {
        name.append(part.data(), std::min(part.size(), LONGEST_NAME_BYTES - std::min(name.size(), LONGEST_NAME_BYTES)));
    }

    bool isInRecord(ErrorCode& error) const {
        if (m_depth < MEMBERS) {
            error = json::error::syntax; // no array of objects
        }
        return m_depth >= MEMBERS;
    }

    bool begin(bool isAllowed, ErrorCode& error) {
        if (!isAllowed) {
            error = json::error::syntax;
            return false;
        }
        ++m_depth;
        return true;
    }

    void end() {
        --m_depth;
        forgetKey();
    }

    void forgetKey() {
        if (m_depth == MEMBERS) {
            m_key.clear();
        }
    }

    bool valueEnded(ErrorCode& error) {
        forgetKey();
        return isInRecord(error);
    }

    bool numberEnded(double roughly, json::string_view part, ErrorCode& error) {
        on_number_part(part, error);
        if (m_depth == MEMBERS && m_key == "timestamp") {
            m_record.timestamp = numberFrom(m_number, roughly);
        }
        m_number.clear();
        return valueEnded(error);
    }

    void addItem() {
        const auto& record = m_record;
        if (!record.hasValue || !record.timestamp) {
            return;
        }
        if (record.type == "text") {
            m_items.append(ClipboardItem(ClipboardContent::text(QByteArray::fromStdString(record.value)),
                                         *record.timestamp, record.isPinned));
        } else if (record.type == "image") {
            if (auto bytes = fromBase64(record.value)) {
                m_items.append(
                    ClipboardItem(ClipboardContent::image(*std::move(bytes)), *record.timestamp, record.isPinned));
            }
        }
    }

    QList<ClipboardItem> m_items;
    Record m_record;
    std::size_t m_depth = TOP;
    std::string m_key;
    std::string m_number;
};

struct Piece {
    std::string_view text;
    char* rest; ///< what belongs together with bytes that are still to come; else the end
};

/// How many bytes belong to an escape; 12 where it may be the first half of a pair.
std::size_t escapeLength(const char* backslash, std::size_t left) {
    if (left < 3 || backslash[1] != 'u') {
        return left >= 2 && backslash[1] != 'u' ? 2 : 6;
    }
    return backslash[2] == 'd' || backslash[2] == 'D' ? 12 : 6;
}

/// How many bytes at the end are the beginning of a character.
std::size_t begunCharacterLength(std::string_view text) {
    for (std::size_t length = 1; length <= std::min<std::size_t>(3, text.size()); ++length) {
        const auto byte = static_cast<unsigned char>(text[text.size() - length]);
        if (byte >= 0xC0) {
            const std::size_t whole = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
            return whole > length ? length : 0;
        }
        if (byte < 0x80) {
            break;
        }
    }
    return 0;
}

/// What of the bytes may be parsed now. The parser of Boost 1.81 must not be left in the middle of an escape or of a
/// character: it goes on with a buffer of 4096 bytes, of which it then fills a few too many.
///
/// Takes away, in place, the backslash before each slash. One writer puts it there, so that a picture has one in every
/// 64 characters, and the parser copies from one backslash to the next. A slash may stand without it wherever it may
/// stand with it.
Piece nextPiece(char* begin, char* end) {
    char* to = begin;
    char* from = begin;
    while (from != end) {
        const auto left = static_cast<std::size_t>(end - from);
        auto* const found = static_cast<char*>(std::memchr(from, '\\', left));
        char* const backslash = found != nullptr ? found : end;
        const auto plain = static_cast<std::size_t>(backslash - from);
        if (to != from) {
            std::memmove(to, from, plain);
        }
        to += plain;
        from = backslash;
        const auto leftFromHere = static_cast<std::size_t>(end - from);
        if (leftFromHere == 0 || leftFromHere < escapeLength(from, leftFromHere)) {
            break;
        }
        if (from[1] != '/') {
            *to++ = '\\';
        }
        *to++ = from[1];
        from += 2;
    }
    const auto begun = from == end ? begunCharacterLength({begin, to}) : 0;
    return {.text = {begin, to - begun}, .rest = from - begun};
}

} // namespace

std::optional<QList<ClipboardItem>> readHistoryJson(const ReadBytes& read) {
    json::parse_options options;
    options.max_depth = DEEPEST_NESTING;
    json::basic_parser<HistoryHandler> parser(options);
    ErrorCode error;

    QByteArray buffer(READ_STEP_BYTES, Qt::Uninitialized);
    const auto fill = [&](std::size_t kept) { return kept + read(buffer.data() + kept, READ_STEP_BYTES - kept); };
    std::size_t size = 0;
    for (std::size_t before = 1; size < BYTE_ORDER_MARK.size() && size != before;) {
        before = size;
        size = fill(size);
    }
    const auto isParsed = [&](std::string_view text) {
        return parser.write_some(true, text.data(), text.size(), error) == text.size() && !error;
    };
    char* const begin = buffer.data();
    if (std::string_view(begin, size).starts_with(BYTE_ORDER_MARK)) {
        std::copy(begin + BYTE_ORDER_MARK.size(), begin + size, begin);
        size = fill(size - BYTE_ORDER_MARK.size());
    }
    std::size_t kept = 0;
    while (size > kept) {
        char* const end = begin + size;
        const auto [text, rest] = nextPiece(begin, end);
        if (!isParsed(text)) {
            return std::nullopt;
        }
        kept = static_cast<std::size_t>(std::copy(rest, end, begin) - begin);
        size = fill(kept);
    }
    if (!isParsed({begin, kept})) {
        return std::nullopt;
    }
    parser.write_some(false, nullptr, 0, error);
    return error ? std::nullopt : std::optional(parser.handler().takeItems());
}

} // namespace zamber::clipboard
