// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"
#include "platform/x11/Connection.h"

namespace zamber::x11 {

/// Key events can be posted where the X server has XTEST; the user can neither grant nor refuse that.
class X11AccessibilityTrust final : public AccessibilityTrust {
public:
    explicit X11AccessibilityTrust(Connection& connection)
        : m_connection(connection) {}

    bool isTrusted() const override;
    std::optional<QUrl> settingsAddress() const override { return std::nullopt; }

private:
    Connection& m_connection;
};

} // namespace zamber::x11
