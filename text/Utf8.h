// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace zamber::text {

/// The text with U+FFFD in place of each maximal broken sequence. A text that is UTF-8 is shared, not copied.
QByteArray repairedUtf8(const QByteArray& text);

} // namespace zamber::text
