// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"

#include "text/ByteBlocks.h"

#include "clipboard/Base64Codec.h"

#include <array>
#include <bit>
#include <cstring>

namespace zamber::clipboard {

namespace {

/// The decoder asks for up to so many bytes more than it fills.
constexpr std::size_t DECODER_SLACK = 2;
constexpr std::size_t PIECE_BYTES = std::size_t{1} << 15;

bool isBackslash(unsigned char byte) {
    return byte == '\\';
}

/// Decodes a text that comes in pieces.
class Decoder {
public:
    explicit Decoder(std::size_t longestText)
        : m_bytes(static_cast<qsizetype>(longestText / 4 * 3 + DECODER_SLACK), Qt::Uninitialized)
        , m_to(m_bytes.data()) {}

    bool add(std::string_view text) {
        const auto length = base64codec::decode(m_to, text);
        m_to += length.value_or(0);
        return length.has_value();
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
    base64codec::encode(output, bytes);
}

std::optional<QByteArray> fromBase64(std::string_view text) {
    Decoder decoder(text.size());
    return decoder.add(text) ? std::optional(std::move(decoder).bytes()) : std::nullopt;
}

std::optional<QByteArray> fromSlashEscapedBase64(std::string_view text) {
    Decoder decoder(text.size());
    // Beyond a full piece: room for one more block, for the surplus bytes of a copy, and for the last two blocks.
    std::array<char, PIECE_BYTES + 4 * text::BYTE_BLOCK> piece; // NOLINT(cppcoreguidelines-pro-type-member-init)
    std::size_t filled = 0;
    const auto decodeFull = [&](bool isLast) {
        // Characters that do not make up a group of four wait for the next piece. Padding is for the end alone.
        const auto length = isLast ? filled : filled / 4 * 4;
        const bool isWellPadded = isLast || length == 0 || piece[length - 1] != '=';
        if (!isWellPadded || !decoder.add({piece.data(), length})) {
            return false;
        }
        std::memmove(piece.data(), piece.data() + length, filled - length);
        filled -= length;
        return true;
    };
    std::size_t at = 0;
    for (; at + 2 * text::BYTE_BLOCK <= text.size(); at += text::BYTE_BLOCK) {
        if (filled >= PIECE_BYTES && !decodeFull(false)) {
            return std::nullopt;
        }
        const char* block = text.data() + at;
        std::size_t from = 0;
        // A whole block is copied each time: surplus bytes cost less than a length that the processor cannot predict.
        for (auto bits = text::blockBits(block, isBackslash); bits != 0; bits &= bits - 1) {
            const auto backslash = static_cast<std::size_t>(std::countr_zero(bits));
            if (block[backslash + 1] != '/') {
                return std::nullopt;
            }
            std::memcpy(piece.data() + filled, block + from, text::BYTE_BLOCK);
            filled += backslash - from;
            from = backslash + 1;
        }
        std::memcpy(piece.data() + filled, block + from, text::BYTE_BLOCK);
        filled += text::BYTE_BLOCK - from;
    }
    for (; at < text.size(); ++at) {
        if (isBackslash(static_cast<unsigned char>(text[at])) && (++at == text.size() || text[at] != '/')) {
            return std::nullopt;
        }
        piece[filled++] = text[at];
    }
    return decodeFull(true) ? std::optional(std::move(decoder).bytes()) : std::nullopt;
}

} // namespace zamber::clipboard
