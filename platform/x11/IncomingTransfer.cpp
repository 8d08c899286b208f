// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/IncomingTransfer.h"

#include <new>
#include <utility>
#include <vector>

namespace zamber::x11 {

IncomingTransfer::IncomingTransfer(Connection& connection, const SelectionQuery& query, Done done)
    : m_connection(connection)
    , m_query(query)
    , m_done(std::move(done))
    , m_window(connection.createWindow(XCB_EVENT_MASK_PROPERTY_CHANGE)) {
    m_patience.setSingleShot(true);
    m_patience.callOnTimeout(&m_patience, [this] { report(endOfNothing()); });
    m_patience.start(PATIENCE);
    xcb_convert_selection(m_connection.raw(), m_window, query.selection, query.target,
                          m_connection.atom(Atom::ZamberAnswer), query.time);
    m_connection.flush();
}

void IncomingTransfer::abandon() {
    m_done = nullptr;
    m_pieces = {};
    m_patience.stop();
    m_sinceUnwanted.start();
}

void IncomingTransfer::handleEvent(const xcb_generic_event_t& event) {
    switch (codeOf(event)) {
    case XCB_SELECTION_NOTIFY: {
        const auto& notify = as<xcb_selection_notify_event_t>(event);
        if (notify.requestor == m_window && m_step == Step::AwaitingAnswer && notify.target == m_query.target &&
            notify.selection == m_query.selection) {
            handleAnswer(notify);
        }
        break;
    }
    case XCB_PROPERTY_NOTIFY: {
        const auto& notify = as<xcb_property_notify_event_t>(event);
        if (notify.window == m_window && m_step == Step::Receiving && notify.state == XCB_PROPERTY_NEW_VALUE &&
            notify.atom == m_connection.atom(Atom::ZamberAnswer)) {
            handlePiece();
        }
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (as<xcb_destroy_notify_event_t>(event).window == m_query.owner) {
            finish(endOfNothing());
        }
        break;
    default:
        break;
    }
}

void IncomingTransfer::handleAnswer(const xcb_selection_notify_event_t& notify) {
    if (notify.property == XCB_ATOM_NONE) {
        finish(TransferEnd::Refused);
        return;
    }
    // Deleting the property tells an INCR owner to begin. It is deleted for an abandoned answer, too, since an owner
    // that is left waiting may serve no other program.
    const std::optional<Property> answer = takeProperty(notify.property);
    if (!answer) {
        finish(TransferEnd::BrokenOff);
    } else if (answer->type != m_connection.atom(Atom::Incr)) {
        finish(answer->type == XCB_ATOM_NONE ? TransferEnd::Refused : TransferEnd::Delivered, *answer);
    } else {
        // No memory is reserved for the size that the owner announces, which may be wrong: growing by steps is as fast.
        m_step = Step::Receiving;
        m_sinceUnwanted.start();
        if (m_done) {
            m_patience.start(PATIENCE);
        }
    }
}

void IncomingTransfer::handlePiece() {
    if (!m_done) {
        drainPiece();
        return;
    }
    const std::optional<Property> piece = takeProperty(m_connection.atom(Atom::ZamberAnswer));
    if (piece && piece->type == XCB_ATOM_NONE) {
        return;
    }
    if (piece && piece->bytes.isEmpty()) {
        m_pieces.bytes.squeeze(); // it has grown by large steps, and may be kept for long
        finish(TransferEnd::Delivered, std::exchange(m_pieces, {}));
    } else if (piece && append(*piece)) {
        m_patience.start(PATIENCE);
    } else {
        report(TransferEnd::BrokenOff); // there is no room for it
    }
}

std::optional<Property> IncomingTransfer::takeProperty(xcb_atom_t property) const {
    try {
        return m_connection.readProperty(m_window, property, Connection::Afterwards::Delete);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

bool IncomingTransfer::append(const Property& piece) {
    if (m_pieces.bytes.size() + piece.bytes.size() > LARGEST) {
        return false;
    }
    m_pieces.type = piece.type;
    m_pieces.format = piece.format;
    try {
        m_pieces.bytes += piece.bytes;
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

void IncomingTransfer::drainPiece() {
    if (m_sinceUnwanted.hasExpired(std::chrono::milliseconds(DRAINING).count())) {
        return; // the next piece is not asked for: the owner's own patience ends it
    }
    const auto cookie = xcb_get_property(m_connection.raw(), 0, m_window, m_connection.atom(Atom::ZamberAnswer),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection.raw(), cookie, nullptr));
    xcb_delete_property(m_connection.raw(), m_window, m_connection.atom(Atom::ZamberAnswer));
    if (reply && reply->bytes_after == 0) {
        finish(TransferEnd::BrokenOff);
    }
}

TransferEnd IncomingTransfer::endOfNothing() const {
    return m_step == Step::Receiving ? TransferEnd::BrokenOff : TransferEnd::Silent;
}

void IncomingTransfer::finish(TransferEnd end, const Property& answer) {
    m_step = Step::Over;
    m_patience.stop();
    report(end, answer);
}

void IncomingTransfer::report(TransferEnd end, const Property& answer) {
    m_pieces = {};
    m_patience.stop();
    m_sinceUnwanted.start();
    if (const Done done = std::exchange(m_done, nullptr)) {
        done(end, answer);
    }
}

IncomingTransfers::IncomingTransfers(Connection& connection)
    : m_connection(connection) {
    connection.addEventHandler([this](const xcb_generic_event_t& event) { handleEvent(event); });
    m_sweep.setSingleShot(true);
    m_sweep.setInterval(AFTERMATH);
    m_sweep.callOnTimeout(&m_sweep, [this] { sweep(); });
}

IncomingTransfer& IncomingTransfers::ask(const SelectionQuery& query, IncomingTransfer::Done done) {
    m_connection.watch(query.owner, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    return *m_transfers.emplace_back(std::make_unique<IncomingTransfer>(m_connection, query, std::move(done)));
}

void IncomingTransfers::handleEvent(const xcb_generic_event_t& event) {
    // By index: an answer makes its reader ask the next question, which adds to the list.
    for (std::size_t i = 0; i < m_transfers.size(); ++i) { // NOLINT(modernize-loop-convert)
        m_transfers[i]->handleEvent(event);
    }
    dropFinished();
}

void IncomingTransfers::dropFinished() {
    std::size_t surplus = m_transfers.size() > MOST_KEPT ? m_transfers.size() - MOST_KEPT : 0;
    std::erase_if(m_transfers, [this, &surplus](const std::unique_ptr<IncomingTransfer>& transfer) {
        if (!transfer->isOver() && surplus == 0) {
            return false;
        }
        surplus -= surplus > 0 ? 1 : 0;
        m_connection.unwatch(transfer->owner(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        m_left.push_back(transfer->window());
        return true;
    });
    if (!m_left.empty() && !m_sweep.isActive()) {
        m_sweep.start();
    }
}

void IncomingTransfers::sweep() {
    for (const xcb_window_t window : m_leftLongAgo) {
        xcb_destroy_window(m_connection.raw(), window);
    }
    m_connection.flush();
    m_leftLongAgo = std::exchange(m_left, {});
    if (!m_leftLongAgo.empty()) {
        m_sweep.start();
    }
}

} // namespace zamber::x11
