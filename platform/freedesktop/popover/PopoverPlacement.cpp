// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/PopoverPlacement.h"

#include <algorithm>

namespace zamber::freedesktop::popover {

namespace {

/// The start of a stretch of the length that lies inside [low, low + room), as near to the wish as can be.
int inside(int wish, int length, int low, int room) {
    return std::max(low, std::min(wish, low + room - length));
}

} // namespace

QRect popoverPlacement(const QRect& anchor, QSize size, PopoverEdge preferredEdge, const QRect& workArea) {
    const int below = anchor.y() + anchor.height() + POPOVER_GAP;
    const int above = anchor.y() - POPOVER_GAP - size.height();
    const bool fitsBelow = below >= workArea.y() && below + size.height() <= workArea.y() + workArea.height();
    const bool fitsAbove = above >= workArea.y() && above + size.height() <= workArea.y() + workArea.height();

    const bool isBelow = preferredEdge == PopoverEdge::MinY ? fitsBelow || !fitsAbove : fitsBelow && !fitsAbove;
    const int centred = anchor.x() + (anchor.width() - size.width()) / 2;
    return {inside(centred, size.width(), workArea.x(), workArea.width()),
            inside(isBelow ? below : above, size.height(), workArea.y(), workArea.height()), size.width(),
            size.height()};
}

} // namespace zamber::freedesktop::popover
