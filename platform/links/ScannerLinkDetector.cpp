// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/links/ScannerLinkDetector.h"

#include "platform/links/LinkScan.h"

namespace zamber::links {

std::optional<DetectedLink> ScannerLinkDetector::firstLink(const QString& text) {
    return LinkScan(text).first();
}

} // namespace zamber::links
