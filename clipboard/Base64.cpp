// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"

#include "clipboard/ByteBlocks.h"

#include <modp_b64.h>

#include <array>
#include <cstring>

namespace zamber {

namespace {

constexpr std::size_t FAILED = static_cast<std::size_t>(-1);
/// The decoder asks for up to so many bytes more than it fills.
constexpr std::size_t DECODER_SLACK = 2;
constexpr std::size_t PIECE_BYTES = std::size_t{1} << 15;

/// Copies what stands before the first backslash, a block at most; how much that was.
std::size_t plainStart(std::string_view text, char* to) {
    const auto isBackslash = [](unsigned char byte) { return byte == '\\'; };
    if (text.size() >= BYTE_BLOCK) {
        std::memcpy(to, text.data(), BYTE_BLOCK); // more than needed costs less than to know how much is
        return firstInBlock(text.data(), isBackslash);
    }
    const auto length = findByte(text, 0, isBackslash);
    std::memcpy(to, text.data(), length);
    return length;
}

/// Decodes a text that comes in pieces.
class Decoder {
public:
    explicit Decoder(std::size_t longestText)
        : m_bytes(static_cast<qsizetype>(longestText / 4 * 3 + DECODER_SLACK), Qt::Uninitialized)
        , m_to(m_bytes.data()) {}

    bool add(std::string_view text) {
        const auto length = modp_b64_decode(m_to, text.data(), text.size());
        m_to += length == FAILED ? 0 : length;
        return length != FAILED;
    }

    QByteArray bytes() && {
        m_bytes.truncate(m_to - m_bytes.constData());
        return std::move(m_bytes);
    }

private:
    QByteArray m_bytes;
    char* m_to;
};

} // namespace

void encodeBase64(char* output, std::string_view bytes) {
    modp_b64_encode(output, bytes.data(), bytes.size());
}

std::optional<QByteArray> fromBase64(std::string_view text) {
    Decoder decoder(text.size());
    return decoder.add(text) ? std::optional(std::move(decoder).bytes()) : std::nullopt;
}

std::optional<QByteArray> fromSlashEscapedBase64(std::string_view text) {
    Decoder decoder(text.size());
    std::array<char, PIECE_BYTES + BYTE_BLOCK> piece; // NOLINT(cppcoreguidelines-pro-type-member-init): written first
    std::size_t filled = 0;
    const auto decodeFull = [&](bool isLast) {
        // What does not fill four characters waits for the next piece. Padding is for the end alone.
        const auto length = isLast ? filled : filled / 4 * 4;
        const bool isWellPadded = isLast || length == 0 || piece[length - 1] != '=';
        if (!isWellPadded || !decoder.add({piece.data(), length})) {
            return false;
        }
        std::memmove(piece.data(), piece.data() + length, filled - length);
        filled -= length;
        return true;
    };
    while (!text.empty()) {
        if (filled >= PIECE_BYTES && !decodeFull(false)) {
            return std::nullopt;
        }
        const auto plain = plainStart(text, piece.data() + filled);
        filled += plain;
        text.remove_prefix(plain);
        if (text.starts_with('\\')) {
            text.remove_prefix(1);
            if (!text.starts_with('/')) {
                return std::nullopt;
            }
        }
    }
    return decodeFull(true) ? std::optional(std::move(decoder).bytes()) : std::nullopt;
}

} // namespace zamber
