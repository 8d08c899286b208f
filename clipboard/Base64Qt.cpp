// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64Codec.h"

#include <QByteArray>

#include <algorithm>

namespace zamber::clipboard::base64codec {

void encode(char* output, std::string_view bytes) {
    const QByteArray text = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())).toBase64();
    *std::ranges::copy(text, output).out = '\0';
}

std::optional<std::size_t> decode(char* output, std::string_view text) {
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    const auto decoded =
        QByteArray::fromBase64Encoding(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())),
                                       QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) {
        return std::nullopt;
    }
    std::ranges::copy(decoded.decoded, output);
    return static_cast<std::size_t>(decoded.decoded.size());
}

} // namespace zamber::clipboard::base64codec
