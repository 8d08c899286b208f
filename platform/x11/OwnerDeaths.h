// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <QObject>

namespace zamber::x11 {

/// Tells when the program of X that owns CLIPBOARD dies, or destroys the window that it owns it by; for compositors
/// that go on offering on Wayland what it had copied.
class OwnerDeaths final : public QObject {
    Q_OBJECT

public:
    explicit OwnerDeaths(Connection& connection);

Q_SIGNALS:
    void ownerDied();
};

} // namespace zamber::x11
