// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/TransferLimits.h"
#include "platform/x11/Connection.h"

#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

namespace zamber::x11 {

/// Where an answer goes: the property of the asking window.
struct Destination {
    xcb_window_t requestor = XCB_WINDOW_NONE;
    xcb_atom_t property = XCB_ATOM_NONE;

    friend bool operator==(const Destination&, const Destination&) = default;
};

/// Writes answers into the properties of other programs' windows: at once where they fit into one request, else
/// piece by piece (INCR; ICCCM, section 2.7.2), any number side by side.
class OutgoingTransfers final {
public:
    /// A requestor that takes longer for a piece is given up.
    static constexpr std::chrono::seconds PATIENCE = freedesktop::selection::LONGEST_READER_SILENCE;

    explicit OutgoingTransfers(Connection& connection);
    ~OutgoingTransfers();

    /// Writes the property, format 8. Replaces a transfer to the same destination that is under way.
    void send(const Destination& destination, xcb_atom_t type, const QByteArray& bytes);

private:
    struct Transfer {
        Destination destination;
        xcb_atom_t type = XCB_ATOM_NONE;
        QByteArray bytes;
        qsizetype sent = 0;
        QTimer patience;
    };

    qsizetype largestPiece() const;
    void begin(const Destination& destination, xcb_atom_t type, const QByteArray& bytes);
    void handleEvent(const xcb_generic_event_t& event);
    void sendPiece(Transfer& transfer);
    void drop(Destination destination);

    Connection& m_connection;
    std::vector<std::unique_ptr<Transfer>> m_transfers;
};

} // namespace zamber::x11
