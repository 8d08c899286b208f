// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/CopyReader.h"
#include "platform/wayland/DataControl.h"
#include "platform/wayland/IncomingPipe.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zamber::wayland {

class Connection;

/// Reads a copy on a clipboard through one pipe after the other, in the order that CopyReader asks for. The pipe is
/// closed with this object, by which the owner learns that its content is no longer read.
class OfferReader final : public QObject {
    Q_OBJECT

public:
    using CopyReader = freedesktop::selection::CopyReader;
    using OwnerAnswer = freedesktop::selection::OwnerAnswer;

    /// Whether the copy with these types carries the mark of a secret that a program of X has set and Wayland does not
    /// show; nothing when the X server or the owner does not answer.
    using AskForMark = std::function<void(const std::vector<QByteArray>& types,
                                          std::function<void(std::optional<bool> isSecret)> answer)>;

    /// Begins in the next turn of the event loop; `tell` is called after that, and never after this object was
    /// destroyed. Where a program of X may have marked the copy, `askForMark`, if there is one, is called first.
    OfferReader(Connection& connection, std::shared_ptr<DataOffer> offer, const AskForMark& askForMark,
                CopyReader::Tell tell);

private:
    using Answer = std::function<void(const OwnerAnswer&)>;

    void begin(const AskForMark& askForMark);
    void handleMark(std::optional<bool> isSecret);
    void ask(const QByteArray& type, const Answer& answer);
    void handlePipe(const OwnerAnswer& owned, const Answer& answer);

    Connection& m_connection;
    std::shared_ptr<DataOffer> m_offer;
    CopyReader::Tell m_tell;
    std::unique_ptr<IncomingPipe> m_pipe; // that is being read
    CopyReader m_reader;
};

} // namespace zamber::wayland
