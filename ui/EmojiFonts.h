// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QList>
#include <QString>
#include <QTextLayout>

namespace zamber::ui {

/// The formats, for a layout of the text in the font, that have emoji drawn as coloured pictures where they are meant
/// as such and where a font for it is installed, and as letters where not. Left to itself Qt takes the first font that
/// has a character, so that one is coloured and the next is not.
QList<QTextLayout::FormatRange> emojiFormats(const QString& text, const QFont& font);

/// The text with keycaps in the order that fonts know, as long as before: to be shown, not to be kept. Qt hides the
/// selector between key and cap too late for fonts to join them.
QString withKeycapsJoined(QString text);

} // namespace zamber::ui
