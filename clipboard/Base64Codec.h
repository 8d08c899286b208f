// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// What turns bytes into Base64 and back: a library's fast one where there is it, Qt's otherwise.
namespace zamber::clipboard::base64codec {

/// Writes padded Base64 without line breaks, and a zero byte behind it.
void encode(char* output, std::string_view bytes);

/// How many bytes were written; nothing when the text is not Base64 as `fromBase64` wants it. There must be room for
/// two bytes more than come out.
std::optional<std::size_t> decode(char* output, std::string_view text);

} // namespace zamber::clipboard::base64codec
