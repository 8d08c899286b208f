// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"

#include <modp_b64.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace zamber {

namespace {

constexpr std::size_t FAILED = static_cast<std::size_t>(-1);
/// The decoder asks for up to so many bytes more than it fills.
constexpr std::size_t DECODER_SLACK = 2;

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
    std::array<char, std::size_t{1} << 15> piece; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
    std::size_t filled = 0;
    while (!text.empty()) {
        const auto* backslash = static_cast<const char*>(std::memchr(text.data(), '\\', text.size()));
        const auto plain = backslash != nullptr ? static_cast<std::size_t>(backslash - text.data()) : text.size();
        const auto taken = std::min(plain, piece.size() - filled);
        std::memcpy(piece.data() + filled, text.data(), taken);
        filled += taken;
        text.remove_prefix(taken);
        if (taken == plain && backslash != nullptr) {
            text.remove_prefix(1);
            if (!text.starts_with('/')) {
                return std::nullopt;
            }
        }
        if (filled == piece.size()) {
            // Padding is for the end alone.
            if ((piece.back() == '=' && !text.empty()) || !decoder.add({piece.data(), filled})) {
                return std::nullopt;
            }
            filled = 0;
        }
    }
    return decoder.add({piece.data(), filled}) ? std::optional(std::move(decoder).bytes()) : std::nullopt;
}

} // namespace zamber
