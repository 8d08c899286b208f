// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/OutgoingTransfers.h"

#include <algorithm>

namespace zamber::x11 {

namespace {

constexpr auto WATCHED =
    static_cast<xcb_event_mask_t>(XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);

constexpr qsizetype REQUEST_HEADER_BYTES = 64;

/// A server with large requests takes 16 MB in one, and serves no other program meanwhile. Smaller pieces than these
/// gain nothing; with pieces of 1 MB the popover already opens seconds late while many programs paste at once.
constexpr qsizetype LARGEST_INCR_PIECE_BYTES = 1 << 18;

} // namespace

OutgoingTransfers::OutgoingTransfers(Connection& connection)
    : m_connection(connection) {
    connection.addEventHandler([this](const xcb_generic_event_t& event) { handleEvent(event); });
}

OutgoingTransfers::~OutgoingTransfers() = default;

qsizetype OutgoingTransfers::largestPiece() const {
    return qsizetype{4} * xcb_get_maximum_request_length(m_connection.raw()) - REQUEST_HEADER_BYTES;
}

void OutgoingTransfers::send(const Destination& destination, xcb_atom_t type, const QByteArray& bytes) {
    drop(destination);
    if (bytes.size() > largestPiece()) {
        begin(destination, type, bytes);
        return;
    }
    xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, destination.requestor, destination.property, type, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.constData());
}

void OutgoingTransfers::begin(const Destination& destination, xcb_atom_t type, const QByteArray& bytes) {
    // Watched before the announcement, so that the requestor's first deletion cannot be missed.
    m_connection.watch(destination.requestor, WATCHED);
    const auto lowerBound =
        static_cast<std::uint32_t>(std::min<qsizetype>(bytes.size(), std::numeric_limits<std::int32_t>::max()));
    xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, destination.requestor, destination.property,
                        m_connection.atom(Atom::Incr), 32, 1, &lowerBound);

    auto& transfer = m_transfers.emplace_back(std::make_unique<Transfer>());
    transfer->destination = destination;
    transfer->type = type;
    transfer->bytes = bytes;
    transfer->patience.setSingleShot(true);
    transfer->patience.callOnTimeout(&transfer->patience, [this, destination] { drop(destination); });
    transfer->patience.start(PATIENCE);
}

void OutgoingTransfers::handleEvent(const xcb_generic_event_t& event) {
    switch (codeOf(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& notify = as<xcb_property_notify_event_t>(event);
        if (notify.state != XCB_PROPERTY_DELETE) {
            return;
        }
        const Destination destination{.requestor = notify.window, .property = notify.atom};
        const auto found = std::ranges::find(m_transfers, destination, [](const auto& t) { return t->destination; });
        if (found != m_transfers.end()) {
            sendPiece(**found);
        }
        break;
    }
    case XCB_DESTROY_NOTIFY: {
        const xcb_window_t window = as<xcb_destroy_notify_event_t>(event).window;
        std::erase_if(m_transfers, [window](const auto& t) { return t->destination.requestor == window; });
        break;
    }
    default:
        break;
    }
}

void OutgoingTransfers::sendPiece(Transfer& transfer) {
    const qsizetype size = std::min({transfer.bytes.size() - transfer.sent, largestPiece(), LARGEST_INCR_PIECE_BYTES});
    xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, transfer.destination.requestor,
                        transfer.destination.property, transfer.type, 8, static_cast<std::uint32_t>(size),
                        transfer.bytes.constData() + transfer.sent);
    transfer.sent += size;
    if (size == 0) {
        drop(transfer.destination); // the piece of no length was the last one
        return;
    }
    transfer.patience.start(PATIENCE);
}

void OutgoingTransfers::drop(Destination destination) {
    const auto dropped =
        std::erase_if(m_transfers, [&destination](const auto& t) { return t->destination == destination; });
    if (dropped > 0) {
        m_connection.unwatch(destination.requestor, WATCHED);
    }
}

} // namespace zamber::x11
