// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QImage>

#include <optional>

namespace zamber {
class Symbols;
}

namespace zamber::popover {}

namespace zamber::popover {}

namespace zamber::popover {

class LazyTextLayout;

/// What the user wants rows to show.
struct RowPreferences {
    bool showLineCount = true;
    bool showCharCount = true;
    bool previewURLs = true;
    bool hideSensitive = false;

    bool operator==(const RowPreferences&) const = default;
};

/// What a row's small buttons do.
enum class RowAction { OpenLink, Pin, Delete };

/// An image entry's picture: still being decoded, decoded, or not to be decoded at all.
enum class ThumbnailState { Pending, Ready, Undecodable };
struct Thumbnail {
    ThumbnailState state = ThumbnailState::Pending;
    QImage image = {};
};

/// Whether a text's counts are known yet, and whether it is sensitive.
enum class TextState { Measured, Pending };

/// An expanded row's text and how far down it is scrolled (points).
struct ExpandedText {
    LazyTextLayout& layout;
    double scrollOffset = 0;
};

/// What a row is drawn with.
struct RowStyle {
    const ui::Palette& palette;
    const Symbols& symbols;
    double devicePixelRatio = 1;
    double now = 0;                       ///< seconds since 1970
    double highlight = 0;                 ///< how far the highlight has faded in, 0 to 1
    std::optional<RowAction> pressedOver; ///< the small button under the pointer
};

} // namespace zamber::popover
