// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardContent.h"

#include <QUuid>

#include <utility>

namespace zamber::clipboard {

/// One entry of the history.
struct ClipboardItem {
    /// The timestamp is in seconds since 1970-01-01 00:00:00 UTC.
    ClipboardItem(ClipboardContent itemContent, double itemTimestamp, bool pinned = false)
        : content(std::move(itemContent))
        , timestamp(itemTimestamp)
        , isPinned(pinned) {}

    /// Random, new with each construction, never stored.
    QUuid id = QUuid::createUuid();
    ClipboardContent content;
    double timestamp;
    bool isPinned;

    /// An item stays itself when it is pinned: only the id counts.
    friend bool operator==(const ClipboardItem& left, const ClipboardItem& right) { return left.id == right.id; }
};

} // namespace zamber::clipboard
