// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QPalette;

namespace zamber {
class Appearance;
}

namespace zamber::ui {

/// Every colour that the program draws with, by its level in the hierarchy. One value is a whole look: nothing is
/// ever mixed with the desktop's own colours, so that no theme can make a text unreadable.
struct Palette {
    QColor primary;    ///< the main texts
    QColor secondary;  ///< supporting texts and symbols
    QColor tertiary;   ///< headings, hints, quiet controls
    QColor quaternary; ///< the quietest text that must still be readable

    QColor tertiaryFill; ///< behind badges, key caps and small buttons
    QColor quinaryFill;  ///< behind a text field

    QColor accent;     ///< symbols and rings in the user's colour
    QColor accentFill; ///< the ground of the default button
    QColor onAccent;   ///< texts on that ground
    QColor separator;
    QColor windowBorder;

    QColor ultraThinMaterial; ///< the ground of a popover
    QColor barMaterial;       ///< the ground of a bar at its edge

    QColor red;
    QColor blue;
    QColor orange;
    QColor purple;
    QColor green;
    QColor gray;

    bool isDark = false;

    /// With the user's accent, made lighter or darker where it would not stand out from the ground.
    static Palette light(const QColor& userAccent);
    static Palette dark(const QColor& userAccent);
    /// Light or dark and the accent as the desktop has them at this moment.
    static Palette of(const Appearance& desktop);

    /// The primary colour's hue at just this opacity: the primary colour's own is not multiplied in.
    QColor primaryAt(double opacity) const;

    /// The same look for the things that Qt draws: menus, tool tips, the text field's selection.
    QPalette forWidgets() const;
};

/// The colour with its opacity multiplied by a factor between 0 and 1.
QColor faded(QColor color, double factor);

/// A translucent colour as it appears on an opaque ground.
QColor composed(const QColor& color, const QColor& ground);

/// How well a text of the colour can be read on an opaque ground: 1 (not at all) to 21, by relative luminance.
double contrastRatio(const QColor& text, const QColor& ground);

} // namespace zamber::ui
