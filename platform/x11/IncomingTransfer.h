// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/TransferLimits.h"
#include "platform/x11/Connection.h"

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zamber::x11 {

/// A question to the owner of a selection.
struct SelectionQuery {
    xcb_atom_t selection = XCB_ATOM_NONE;
    xcb_atom_t target = XCB_ATOM_NONE;
    xcb_timestamp_t time = XCB_CURRENT_TIME; ///< of the event that led to the question (ICCCM, section 2.4)
    xcb_window_t owner = XCB_WINDOW_NONE;
};

/// How an answer ended.
enum class TransferEnd {
    Delivered, ///< whole
    Refused,
    Silent,    ///< nothing came within the patience
    BrokenOff, ///< after some pieces: the owner fell silent or went away, or there is no room for all of it
};

/// One answer of a selection's owner, from the request to the last piece (ICCCM, sections 2.4 and 2.7.2).
///
/// It has a window of its own to receive in, and never waits in place. Each step of the owner has to come within
/// `PATIENCE`, and a transfer that goes on may take as long as it needs, up to `LARGEST` or to where memory ends.
class IncomingTransfer final {
public:
    static constexpr std::chrono::seconds PATIENCE = freedesktop::selection::LONGEST_OWNER_SILENCE;
    static constexpr qsizetype LARGEST = freedesktop::selection::LARGEST_CONTENT;

    /// How long an abandoned answer is still taken from its owner, which may serve no other program until it is taken.
    static constexpr std::chrono::seconds DRAINING{10};

    /// Told once; with the property as the owner gave it when it was delivered.
    using Done = std::function<void(TransferEnd, const Property&)>;

    IncomingTransfer(Connection& connection, const SelectionQuery& query, Done done);
    IncomingTransfer(const IncomingTransfer&) = delete;
    IncomingTransfer& operator=(const IncomingTransfer&) = delete;

    /// Gives the answer up: `done` will not be called.
    void abandon();

    /// The owner is done with the window (or has gone), so that this object may be destroyed.
    bool isOver() const { return m_step == Step::Over; }

    xcb_window_t owner() const { return m_query.owner; }

    /// Where the answer arrives. It outlives this object, and is left to the caller to destroy.
    xcb_window_t window() const { return m_window; }

    void handleEvent(const xcb_generic_event_t& event);

private:
    enum class Step {
        AwaitingAnswer,
        Receiving, ///< INCR: pieces come one by one, each asked for by deleting the one before
        Over,
    };

    void handleAnswer(const xcb_selection_notify_event_t& notify);
    void handlePiece();
    std::optional<Property> takeProperty(xcb_atom_t property) const;
    bool append(const Property& piece);
    void finish(TransferEnd end, const Property& answer = {});
    void report(TransferEnd end, const Property& answer = {});
    TransferEnd endOfNothing() const;
    void drainPiece();

    Connection& m_connection;
    SelectionQuery m_query;
    Done m_done;
    Step m_step = Step::AwaitingAnswer;
    xcb_window_t m_window;
    Property m_pieces;
    QTimer m_patience;
    QElapsedTimer m_sinceUnwanted;
};

/// The transfers under way and those that were given up but whose owners may still write, with the windows of both:
/// a program that does anything to a window that has vanished may die of the error.
class IncomingTransfers final {
public:
    explicit IncomingTransfers(Connection& connection);

    /// Asks, and keeps the transfer until it is over. The reference is good until `done` was called or the transfer
    /// was abandoned.
    IncomingTransfer& ask(const SelectionQuery& query, IncomingTransfer::Done done);

private:
    /// More windows than this are not kept for owners that owe an answer. An owner that hangs cannot come to own the
    /// selection again, so that each one costs a single window; one that copies faster than it answers costs more.
    static constexpr std::size_t MOST_KEPT = 2048;

    /// Owners listen to the window of a transfer in pieces, and some stop to do so only a while after its end.
    static constexpr std::chrono::seconds AFTERMATH{5};

    void handleEvent(const xcb_generic_event_t& event);
    void dropFinished();
    void sweep();

    Connection& m_connection;
    std::vector<std::unique_ptr<IncomingTransfer>> m_transfers;
    std::vector<xcb_window_t> m_left;        // by transfers that are over
    std::vector<xcb_window_t> m_leftLongAgo; // at least one sweep before
    QTimer m_sweep;
};

} // namespace zamber::x11
