// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopoverHost.h"

#include <QRect>

namespace zamber::freedesktop::popover {

/// The air between an anchor and its popover, and around a popover at the work area's edges, so that its corners and
/// the shadow are seen there; in points.
inline constexpr int POPOVER_GAP = 6;

/// Where a popover of the size goes: on the preferred side of the anchor if it fits there, else on the other side,
/// centred on the anchor, and moved as far as it takes to be whole inside the work area. One that is larger than the
/// work area shrinks to what fits. All in points.
QRect popoverPlacement(const QRect& anchor, QSize size, PopoverEdge preferredEdge, const QRect& workArea);

} // namespace zamber::freedesktop::popover
