// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QImage>

#include <optional>

namespace zamber {
class Symbols;
}

namespace zamber::popover {

/// The user's preferences about rows.
struct RowPreferences {
    bool showLineCount = true;
    bool showCharCount = true;
    bool previewURLs = true;
    bool hideSensitive = false;

    bool operator==(const RowPreferences&) const = default;
};

/// The actions of a row's small buttons.
enum class RowAction { OpenLink, Pin, Delete };

/// An image entry's picture: still being decoded, decoded, or not decodable.
enum class ThumbnailState { Pending, Ready, Undecodable };
struct Thumbnail {
    ThumbnailState state = ThumbnailState::Pending;
    QImage image = {};
};

/// Whether a text's counts are known yet, and whether it is sensitive.
enum class TextState { Measured, Pending };

/// The part of a row on which the pointer's button is held down.
enum class PressedPart { None, Row, Action };

/// Everything besides the entry that a row is drawn with.
struct RowStyle {
    const ui::Palette& palette;
    const Symbols& symbols;
    double devicePixelRatio = 1;
    double now = 0;                         ///< seconds since 1970
    double highlight = 0;                   ///< how far the highlight has faded in, 0 to 1
    std::optional<RowAction> hoveredAction; ///< the small button under the pointer
    PressedPart pressed = PressedPart::None;
};

} // namespace zamber::popover
