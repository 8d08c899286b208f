// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

#include <optional>

namespace zamber {

/// The permission to post key events into other programs.
class AccessibilityTrust {
public:
    virtual ~AccessibilityTrust() = default;

    /// Asked anew at each call; never shows a prompt.
    virtual bool isTrusted() const = 0;

    /// The page of the system's settings where the user grants it; nothing where it cannot be granted.
    virtual std::optional<QUrl> settingsAddress() const = 0;
};

} // namespace zamber
