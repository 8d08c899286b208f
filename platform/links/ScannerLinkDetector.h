// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LinkDetector.h"

namespace zamber::links {

/// Finds links by a scanner of our own, close to what the Mac's data detector calls a link: addresses with a scheme,
/// names that begin with "www.", mail addresses, and names under the top-level domains that the Mac links by
/// themselves, unless they stand in what can only be code.
class ScannerLinkDetector final : public LinkDetector {
public:
    std::optional<DetectedLink> firstLink(const QString& text) override;
};

} // namespace zamber::links
