// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/ScannerLinkDetector.h"

#include "platform/freedesktop/LinkScan.h"

namespace zamber {

std::optional<DetectedLink> ScannerLinkDetector::firstLink(const QString& text) {
    return LinkScan(text).first();
}

} // namespace zamber
