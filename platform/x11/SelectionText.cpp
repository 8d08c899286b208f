// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SelectionText.h"

#include <QStringDecoder>
#include <QUtf8StringView>

#include <algorithm>

namespace zamber::x11 {

QByteArray repairedUtf8(const QByteArray& bytes) {
    if (QUtf8StringView(bytes).isValidUtf8()) {
        return bytes;
    }
    return QString::fromUtf8(bytes).toUtf8();
}

QByteArray utf8FromLatin1(const QByteArray& bytes) {
    const auto isAscii = [](char byte) { return static_cast<signed char>(byte) >= 0; };
    if (std::all_of(bytes.begin(), bytes.end(), isAscii)) {
        return bytes;
    }
    return QString::fromLatin1(bytes).toUtf8();
}

QByteArray latin1FromUtf8(const QByteArray& text) {
    QByteArray converted;
    converted.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x80) {
            converted += text[i];
        } else if ((byte == 0xc2 || byte == 0xc3) && i + 1 < text.size()) {
            converted += static_cast<char>(((byte & 0x03) << 6) | (static_cast<unsigned char>(text[++i]) & 0x3f));
        } else if ((byte & 0xc0) != 0x80) {
            converted += '?'; // once a character: its following bytes are passed over
        }
    }
    return converted;
}

} // namespace zamber::x11
