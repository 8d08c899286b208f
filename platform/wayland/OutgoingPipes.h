// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Descriptor.h"

#include <QByteArray>

#include <chrono>
#include <memory>
#include <vector>

namespace zamber::wayland {

/// Writes what other programs asked for into their pipes, any number side by side, waiting for none of them.
class OutgoingPipes final {
public:
    /// A reader that takes nothing for so long is given up.
    static constexpr std::chrono::seconds PATIENCE{30};

    OutgoingPipes();
    ~OutgoingPipes();
    OutgoingPipes(const OutgoingPipes&) = delete;
    OutgoingPipes& operator=(const OutgoingPipes&) = delete;

    /// Writes the bytes, which are shared and not copied, and closes. Nothing is told when the reader goes away.
    void send(Descriptor writeTo, const QByteArray& bytes);

private:
    class Transfer;

    void drop(Transfer& ended);

    std::vector<std::unique_ptr<Transfer>> m_transfers;
};

} // namespace zamber::wayland
