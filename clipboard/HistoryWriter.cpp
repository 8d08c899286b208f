// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/HistoryWriter.h"

#include "text/ByteView.h"

#include "clipboard/Base64.h"
#include "clipboard/JsonString.h"

#include <QByteArray>
#include <QLocale>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>

namespace zamber::clipboard {

namespace {

/// Most histories fit, so that their file is written at one stroke.
constexpr std::size_t BLOCK_BYTES = std::size_t{4} << 20;
constexpr qsizetype FIRST_BLOCK_BYTES = qsizetype{1} << 12;
/// Multiples of three encode without padding.
constexpr std::size_t ENCODED_AT_ONCE_BYTES = std::size_t{3} << 14;
constexpr std::size_t ESCAPED_AT_ONCE_BYTES = std::size_t{1} << 12;

/// An output that counts the bytes instead of writing them.
struct Measure {
    std::int64_t size = 0;

    void put(std::string_view text) { size += static_cast<std::int64_t>(text.size()); }
    void putText(std::string_view text) { size += static_cast<std::int64_t>(jsonStringLength(text)); }
    void putBase64(std::string_view bytes) { size += static_cast<std::int64_t>(base64Length(bytes.size())); }
};

class BlockWriter {
public:
    explicit BlockWriter(const std::function<bool(std::string_view)>& take)
        : m_take(take)
        , m_block(FIRST_BLOCK_BYTES, Qt::Uninitialized) {}

    void put(std::string_view text) {
        while (!text.empty()) {
            makeRoom(1);
            const auto length = std::min(text.size(), room());
            std::memcpy(m_block.data() + m_filled, text.data(), length);
            m_filled += length;
            text.remove_prefix(length);
        }
    }

    void putText(std::string_view text) {
        while (!text.empty() && m_goesOn) {
            const auto piece = text.substr(0, ESCAPED_AT_ONCE_BYTES);
            makeRoom(piece.size() * LONGEST_JSON_ESCAPE_BYTES);
            m_filled = static_cast<std::size_t>(writeJsonString(m_block.data() + m_filled, piece) - m_block.data());
            text.remove_prefix(piece.size());
        }
    }

    void putBase64(std::string_view bytes) {
        while (!bytes.empty() && m_goesOn) {
            const auto piece = bytes.substr(0, ENCODED_AT_ONCE_BYTES);
            makeRoom(base64Length(piece.size()));
            encodeBase64(m_block.data() + m_filled, piece);
            m_filled += base64Length(piece.size());
            bytes.remove_prefix(piece.size());
        }
    }

    /// False when the taker wanted no more.
    bool finish() {
        handOut();
        return m_goesOn;
    }

private:
    /// The Base64 coder writes one byte more than it is asked for.
    std::size_t room() const { return static_cast<std::size_t>(m_block.size()) - m_filled - 1; }

    void makeRoom(std::size_t length) {
        while (room() < length) {
            if (static_cast<std::size_t>(m_block.size()) < BLOCK_BYTES) {
                m_block.resize(m_block.size() * 2);
            } else {
                handOut();
            }
        }
    }

    void handOut() {
        m_goesOn = m_goesOn && m_take(text::view(m_block).substr(0, m_filled));
        m_filled = 0;
    }

    const std::function<bool(std::string_view)>& m_take;
    QByteArray m_block;
    std::size_t m_filled = 0;
    bool m_goesOn = true;
};

/// The shortest form that reads back as the same number.
template <class Output>
void putNumber(Output& output, double number) {
#ifdef __cpp_lib_to_chars
    std::array<char, 512> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    output.put({digits.data(), result.ptr});
#else // a standard library whose to_chars has no fractions
    output.put(text::view(QByteArray::number(number, 'f', QLocale::FloatingPointShortest)));
#endif
}

template <class Output>
void putHistory(Output& output, const QList<ClipboardItem>& items) {
    std::string_view opening = "[{";
    for (const auto& item : items) {
        output.put(opening);
        opening = ",{";
        if (item.content.isImage()) {
            output.put(R"("type":"image","value":")");
            output.putBase64(text::view(item.content.bytes()));
        } else {
            output.put(R"("type":"text","value":")");
            output.putText(text::view(item.content.utf8()));
        }
        output.put(R"(","timestamp":)");
        putNumber(output, item.timestamp);
        output.put(item.isPinned ? R"(,"isPinned":true})" : R"(,"isPinned":false})");
    }
    output.put(items.isEmpty() ? "[]" : "]");
}

} // namespace

std::optional<std::int64_t> historyJsonSize(const QList<ClipboardItem>& items) {
    if (!std::ranges::all_of(items, [](const auto& item) { return std::isfinite(item.timestamp); })) {
        return std::nullopt;
    }
    Measure measure;
    putHistory(measure, items);
    return measure.size;
}

bool writeHistoryJson(const QList<ClipboardItem>& items, const std::function<bool(std::string_view)>& take) {
    BlockWriter writer(take);
    putHistory(writer, items);
    return writer.finish();
}

} // namespace zamber::clipboard
