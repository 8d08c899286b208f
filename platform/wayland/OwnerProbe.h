// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/DataControl.h"
#include "platform/wayland/Descriptor.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace zamber::wayland {

/// Asks once whether a copy has an owner that answers, for compositors that go on offering what a program of X had
/// copied after that program has died. Tells nothing once it was destroyed.
class OwnerProbe final : public QObject {
    Q_OBJECT

public:
    /// The longest time that an owner is given for its first byte.
    static constexpr std::chrono::milliseconds LONGEST_ANSWER{1000};

    /// Asks for that type of the copy, of which the owner has given bytes before; calls back when there come none.
    OwnerProbe(DataOffer& offer, const QByteArray& type, std::function<void()> isDead);

private:
    void read();
    void finish();

    Descriptor m_pipe;
    std::optional<QSocketNotifier> m_readable;
    QTimer m_bound;
    std::function<void()> m_isDead;
};

} // namespace zamber::wayland
