// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>
#include <string_view>

namespace zamber {

/// Standard Base64 (RFC 4648, section 4), with padding and nothing else in between.
void appendBase64(QByteArray& output, const QByteArray& bytes);

/// Nothing when the text holds any other character, is not padded to a multiple of four or is padded elsewhere than
/// at its end. Bits that the last character has too many are ignored. The empty text is no bytes.
std::optional<QByteArray> fromBase64(std::string_view text);

} // namespace zamber
