// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/CopyReader.h"
#include "platform/wayland/DataControl.h"
#include "platform/wayland/IncomingPipe.h"

#include <functional>
#include <memory>

namespace zamber::wayland {

class Connection;

/// Reads what is offered on a clipboard: one pipe after the other, as the reader of copies asks. With this object goes
/// the pipe, so that the owner hears that nobody reads any more.
class OfferReader final : public QObject {
    Q_OBJECT

public:
    using CopyReader = freedesktop::selection::CopyReader;
    using OwnerAnswer = freedesktop::selection::OwnerAnswer;

    /// Begins in the next turn of the loop; `tell` is called later, and not after this object has gone.
    OfferReader(Connection& connection, std::shared_ptr<DataOffer> offer, CopyReader::Tell tell);

private:
    using Answer = std::function<void(const OwnerAnswer&)>;

    void ask(const QByteArray& type, const Answer& answer);
    void handlePipe(const OwnerAnswer& owned, const Answer& answer);

    Connection& m_connection;
    std::shared_ptr<DataOffer> m_offer;
    std::unique_ptr<IncomingPipe> m_pipe; // under way
    CopyReader m_reader;
};

} // namespace zamber::wayland
