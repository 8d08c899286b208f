// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <optional>
#include <string_view>

namespace zamber::clipboard {

/// How long the Base64 of so many bytes is.
constexpr std::size_t base64Length(std::size_t bytes) {
    return (bytes + 2) / 3 * 4;
}

/// Writes the bytes in standard Base64 (RFC 4648, section 4), padded, with nothing in between, and a zero byte behind.
/// There must be room for `base64Length` and one more.
void encodeBase64(char* output, std::string_view bytes);

/// Nothing when the text holds any other character, is not padded to a multiple of four or is padded elsewhere than
/// at its end. Bits that the last character has too many are ignored. The empty text is no bytes.
std::optional<QByteArray> fromBase64(std::string_view text);

} // namespace zamber::clipboard
