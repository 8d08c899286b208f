// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/CopyReader.h"
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

    /// So long may an owner be silent, before its first byte or after any other.
    static constexpr std::chrono::seconds PATIENCE{10};

    /// An answer that goes on may take as long as it needs, up to here or to where memory ends.
    static constexpr qsizetype LARGEST = qsizetype{1} << 30; // bytes

    using Done = std::function<void(OwnerAnswer::Outcome outcome, const QByteArray& bytes)>;

    /// `done` is called later, once, unless this object has gone, and may drop it later. Delivered means that the
    /// pipe was closed, which an owner that dies does, too.
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
