// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"

#include <QHash>
#include <QList>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace zamber {
class LinkDetector;
}

namespace zamber::popover {}

namespace zamber::popover {}

namespace zamber::popover {

/// Where a content leads: a short text to the first link in it, a long one only when all of it is a link; an image
/// nowhere.
std::optional<QUrl> detectedUrl(const clipboard::ClipboardContent& content, LinkDetector& detector);

/// The links of the entries that have been looked at, each looked for once.
class DetectedLinks {
public:
    /// Without a detector there are no links.
    explicit DetectedLinks(LinkDetector* detector)
        : m_detector(detector) {}

    std::optional<QUrl> in(const clipboard::ClipboardItem& item);

    /// Forgets all other entries.
    void keepOnly(const QList<clipboard::ClipboardItem>& items);

private:
    LinkDetector* m_detector;
    QHash<QUuid, std::optional<QUrl>> m_found;
};

} // namespace zamber::popover
