// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64Codec.h"

#include <modp_b64.h>

namespace zamber::clipboard::base64codec {

void encode(char* output, std::string_view bytes) {
    modp_b64_encode(output, bytes.data(), bytes.size());
}

std::optional<std::size_t> decode(char* output, std::string_view text) {
    constexpr auto failed = static_cast<std::size_t>(-1);
    const std::size_t length = modp_b64_decode(output, text.data(), text.size());
    return length == failed ? std::nullopt : std::optional(length);
}

} // namespace zamber::clipboard::base64codec
