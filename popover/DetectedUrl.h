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

/// The link of a content: of a short text the first one in it, of a long text only one that is all of the text, of an
/// image none.
std::optional<QUrl> detectedUrl(const clipboard::ClipboardContent& content, LinkDetector& detector);

} // namespace zamber::popover
