// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"

#include <modp_b64.h>

namespace zamber::clipboard {

void encodeBase64(char* output, std::string_view bytes) {
    modp_b64_encode(output, bytes.data(), bytes.size());
}

std::optional<QByteArray> fromBase64(std::string_view text) {
    constexpr auto FAILED = static_cast<std::size_t>(-1);
    QByteArray bytes(static_cast<qsizetype>(modp_b64_decode_len(text.size())), Qt::Uninitialized);
    const std::size_t length = modp_b64_decode(bytes.data(), text.data(), text.size());
    if (length == FAILED) {
        return std::nullopt;
    }
    bytes.truncate(static_cast<qsizetype>(length));
    return bytes;
}

} // namespace zamber::clipboard
