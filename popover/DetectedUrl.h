// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardContent.h"

#include <QUrl>

#include <optional>

namespace zamber {
class LinkDetector;
}

namespace zamber::popover {

/// Where a content leads: a short text to the first link in it, a long one only when all of it is a link; an image
/// nowhere.
std::optional<QUrl> detectedUrl(const clipboard::ClipboardContent& content, LinkDetector& detector);

} // namespace zamber::popover
