// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace zamber::freedesktop::selection {

/// Texts as selections carry them. Ours are valid UTF-8; X has Latin-1 under the name STRING, and whatever a
/// program put under a UTF-8 name.

/// ISO 8859-1 to UTF-8.
QByteArray utf8FromLatin1(const QByteArray& bytes);

/// UTF-8 to ISO 8859-1; characters that it does not have become '?'.
QByteArray latin1FromUtf8(const QByteArray& text);

} // namespace zamber::freedesktop::selection
