// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/PopoverPlacement.h"

#include <algorithm>

namespace zamber::freedesktop::popover {

namespace {

/// Where a stretch of the length starts that lies inside [low, low + room), as near to the wish as possible.
int inside(int wish, int length, int low, int room) {
    return std::max(low, std::min(wish, low + room - length));
}

} // namespace

QRect popoverPlacement(const QRect& anchor, QSize size, PopoverEdge preferredEdge, const QRect& workArea) {
    const QRect room = workArea.adjusted(POPOVER_GAP, POPOVER_GAP, -POPOVER_GAP, -POPOVER_GAP);
    const QSize fitting = size.boundedTo(room.size());
    const int below = anchor.y() + anchor.height() + POPOVER_GAP;
    const int above = anchor.y() - POPOVER_GAP - fitting.height();
    const bool fitsBelow = below >= room.y() && below + fitting.height() <= room.y() + room.height();
    const bool fitsAbove = above >= room.y() && above + fitting.height() <= room.y() + room.height();

    const bool isBelow = preferredEdge == PopoverEdge::MinY ? fitsBelow || !fitsAbove : fitsBelow && !fitsAbove;
    const int centred = anchor.x() + (anchor.width() - fitting.width()) / 2;
    return {QPoint(inside(centred, fitting.width(), room.x(), room.width()),
                   inside(isBelow ? below : above, fitting.height(), room.y(), room.height())),
            fitting};
}

} // namespace zamber::freedesktop::popover
