// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/TransferLimits.h"
#include "platform/wayland/Descriptor.h"

#include <QByteArray>

#include <chrono>
#include <memory>
#include <vector>

namespace zamber::wayland {

/// Writes contents into the pipes of the programs that asked for them: any number at the same time, without waiting
/// for a reader.
class OutgoingPipes final {
public:
    /// A reader that takes no byte for this time is given up.
    static constexpr std::chrono::seconds PATIENCE = freedesktop::selection::LONGEST_READER_SILENCE;

    OutgoingPipes();
    ~OutgoingPipes();
    OutgoingPipes(const OutgoingPipes&) = delete;
    OutgoingPipes& operator=(const OutgoingPipes&) = delete;

    /// Writes the bytes, which are shared and not copied, then closes the pipe. The end of a
    /// reader is not reported.
    void send(Descriptor writeTo, const QByteArray& bytes);

private:
    class Transfer;

    void drop(Transfer& ended);

    std::vector<std::unique_ptr<Transfer>> m_transfers;
};

} // namespace zamber::wayland
