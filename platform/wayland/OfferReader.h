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

/// Reads what is offered on a clipboard: one pipe after the other, as the reader of copies asks. With this object goes
/// the pipe, so that the owner hears that nobody reads any more.
class OfferReader final : public QObject {
    Q_OBJECT

public:
    using CopyReader = freedesktop::selection::CopyReader;
    using OwnerAnswer = freedesktop::selection::OwnerAnswer;

    /// Whether the copy that is offered in these types is marked as a secret in a way that Wayland is not told of;
    /// nothing when whoever knows does not answer.
    using AskForMark = std::function<void(const std::vector<QByteArray>& types,
                                          std::function<void(std::optional<bool> isSecret)> answer)>;

    /// Begins in the next turn of the loop; `tell` is called later, and not after this object has gone. Where a copy
    /// may be of a program of X that has marked it, `askForMark` is asked first, if there is one.
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
    std::unique_ptr<IncomingPipe> m_pipe; // under way
    CopyReader m_reader;
};

} // namespace zamber::wayland
