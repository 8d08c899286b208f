// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"
#include "platform/x11/X11AccessibilityTrust.h"

namespace zamber::freedesktop::portal {
class PortalHotKeyCenter;
class PortalKeyboard;
} // namespace zamber::freedesktop::portal

namespace zamber::x11 {

class Windows;

/// Key events reach programs of X wherever the server has XTEST, and all others with the consent that a portal asks
/// for. Where there is no such portal, XTEST is all that there is to be had.
class XWaylandTrust final : public AccessibilityTrust {
public:
    XWaylandTrust(Connection& connection, Windows& windows, freedesktop::portal::PortalKeyboard& keyboard,
                  const freedesktop::portal::PortalHotKeyCenter& hotKeys);

    bool isTrusted() const override;
    bool isTrustedInFront() const override;
    std::optional<QUrl> settingsAddress() const override { return std::nullopt; }

    /// Waits for the desktop's question about hot keys to be answered as well, so that the user has one at a time.
    void whenKnown(std::function<void()> known) override;
    bool hasDialog() const override;
    void showDialog() const override;

private:
    Windows& m_windows;
    X11AccessibilityTrust m_trustOfX;
    freedesktop::portal::PortalKeyboard& m_keyboard;
    const freedesktop::portal::PortalHotKeyCenter& m_hotKeys;
};

} // namespace zamber::x11
