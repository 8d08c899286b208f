// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

#include <functional>
#include <optional>

namespace zamber {

/// The permission to post key events into other programs.
class AccessibilityTrust {
public:
    virtual ~AccessibilityTrust() = default;

    /// Asked anew at each call; never shows a prompt.
    virtual bool isTrusted() const = 0;

    /// Whether key events reach the window in front. Where the desktop lets them through to some programs only, that
    /// may be so without the permission, and not be so where nobody can grant it.
    virtual bool isTrustedInFront() const { return isTrusted(); }

    /// Calls back, from the main loop at the latest, when `isTrusted` has an answer to be relied on; once. Some
    /// desktops have to be asked first.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): other desktops keep it until they have been answered
    virtual void whenKnown(std::function<void()> known) { known(); }

    /// Whether the desktop has a dialog of its own that asks the user for it, and has not been given it.
    virtual bool hasDialog() const { return false; }

    /// Shows that dialog. Only when the user wants it.
    virtual void showDialog() const {}

    /// The page of the system's settings where the user grants it; nothing where it cannot be granted.
    virtual std::optional<QUrl> settingsAddress() const = 0;
};

} // namespace zamber
