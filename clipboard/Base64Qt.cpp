// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"

#include <algorithm>

namespace zamber::clipboard {

void encodeBase64(char* output, std::string_view bytes) {
    const QByteArray text = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())).toBase64();
    *std::ranges::copy(text, output).out = '\0';
}

std::optional<QByteArray> fromBase64(std::string_view text) {
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    auto decoded =
        QByteArray::fromBase64Encoding(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())),
                                       QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(std::move(decoded.decoded)) : std::nullopt;
}

} // namespace zamber::clipboard
