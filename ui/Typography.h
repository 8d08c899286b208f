// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace zamber::ui {

/// The interface's typeface. Sizes are points of 1/72 inch on a Mac's screen, that is device-independent pixels here.
QFont textFont(int points, QFont::Weight weight = QFont::Normal);

/// The typeface of large key caps: one with round ends where there is one, else the interface's.
QFont roundedFont(int points, QFont::Weight weight = QFont::Normal);

/// The typeface of badges and key caps, each character as wide as the next.
QFont monospacedFont(int points, QFont::Weight weight = QFont::Normal);

} // namespace zamber::ui
