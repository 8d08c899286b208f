// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/CopyReader.h"
#include "platform/freedesktop/selection/TransferLimits.h"
#include "platform/wayland/Descriptor.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>

namespace zamber::wayland {

/// Reads what the owner of a clipboard writes into a pipe, without ever waiting for it.
class IncomingPipe final : public QObject {
    Q_OBJECT

public:
    using OwnerAnswer = freedesktop::selection::OwnerAnswer;

    static constexpr std::chrono::seconds PATIENCE = freedesktop::selection::LONGEST_OWNER_SILENCE;
    static constexpr qsizetype LARGEST = freedesktop::selection::LARGEST_CONTENT;

    using Done = std::function<void(OwnerAnswer::Outcome outcome, const QByteArray& bytes)>;

    /// `done` is called once, after the constructor has returned and not after this object was destroyed; it may get
    /// rid of this object only by `deleteLater`. "Delivered" says that the pipe was closed, which also happens when the
    /// owner dies.
    IncomingPipe(Descriptor readFrom, Done done);

private:
    void read();
    void finish(OwnerAnswer::Outcome outcome);
    OwnerAnswer::Outcome endOfNothing() const;

    Descriptor m_pipe;
    QSocketNotifier m_readable;
    QTimer m_patience;
    QByteArray m_bytes;
    Done m_done;
};

} // namespace zamber::wayland
