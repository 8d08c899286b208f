// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/PrimaryLoan.h"

#include <chrono>
#include <utility>
#include <variant>

namespace zamber::x11 {

namespace {

/// A paste does not wait longer than this for the former content, which is offered again afterwards.
constexpr std::chrono::milliseconds PATIENCE{300};

} // namespace

PrimaryLoan::PrimaryLoan(Connection& connection, AtomNames& names, IncomingTransfers& transfers,
                         OutgoingTransfers& answers)
    : m_connection(connection)
    , m_names(names)
    , m_transfers(transfers)
    , m_server(connection, names, answers, XCB_ATOM_PRIMARY) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(PATIENCE);
    connect(&m_patience, &QTimer::timeout, this, [this] { keepFormer(CopyReader::Failed{}); });
    connect(&m_server, &SelectionServer::served, this, &PrimaryLoan::served);
}

void PrimaryLoan::borrow(const SelectionContent& content, std::function<void()> done) {
    m_lent = content;
    m_done = std::move(done);
    if (m_server.isOwner()) {
        take(); // the former content is known from the last loan
        return;
    }
    m_former = {};
    const xcb_window_t owner = m_connection.selectionOwner(XCB_ATOM_PRIMARY);
    if (owner == XCB_WINDOW_NONE) {
        take();
        return;
    }
    m_isWaitingForFormer = true;
    m_patience.start();
    m_connection.requestTimestamp([this, owner](xcb_timestamp_t time) {
        const SelectionQuery query{
            .selection = XCB_ATOM_PRIMARY, .target = XCB_ATOM_NONE, .time = time, .owner = owner};
        m_reader =
            std::make_unique<SelectionReader>(m_connection, m_names, m_transfers, query,
                                              [this](const CopyReader::Outcome& outcome) { keepFormer(outcome); });
    });
}

void PrimaryLoan::keepFormer(const CopyReader::Outcome& outcome) {
    if (!std::exchange(m_isWaitingForFormer, false)) {
        return; // further forms of the same content, for which no paste waits
    }
    m_patience.stop();
    if (m_reader) {
        m_reader.release()->deleteLater(); // the reader may be the caller
    }
    if (const auto* arrived = std::get_if<CopyReader::Arrived>(&outcome)) {
        m_former = arrived->content;
    }
    take();
}

void PrimaryLoan::take() {
    m_connection.requestTimestamp([this](xcb_timestamp_t time) {
        m_isBorrowed = m_server.acquire(m_lent, time);
        m_lent = {};
        if (const auto done = std::exchange(m_done, nullptr)) {
            done();
        }
    });
}

void PrimaryLoan::giveBack() {
    if (!std::exchange(m_isBorrowed, false)) {
        return;
    }
    m_connection.requestTimestamp([this](xcb_timestamp_t time) {
        if (m_isBorrowed || !m_server.isOwner()) {
            return; // borrowed again, or the user has selected something
        }
        if (m_former.isEmpty()) {
            m_server.release(time);
        } else {
            m_server.acquire(m_former, time);
        }
    });
}

} // namespace zamber::x11
