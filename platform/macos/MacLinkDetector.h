// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LinkDetector.h"

namespace zamber::macos {

/// The system's data detector.
class MacLinkDetector final : public LinkDetector {
public:
    std::optional<DetectedLink> firstLink(const QString& text) override;
};

} // namespace zamber::macos
