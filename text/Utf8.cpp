// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/Utf8.h"

#include "text/ByteBlocks.h"
#include "text/CodePoints.h"

namespace zamber::text {

QByteArray repairedUtf8(const QByteArray& text) {
    const std::string_view bytes(text.constData(), static_cast<std::size_t>(text.size()));
    if (asciiLength(bytes) == bytes.size() || text.isValidUtf8()) {
        return text;
    }
    QByteArray repaired;
    for (std::size_t at = 0; at < bytes.size();) {
        appendCodePoint(repaired, nextCodePoint(bytes, at));
    }
    return repaired;
}

} // namespace zamber::text
