// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/SelectionReader.h"
#include "platform/x11/SelectionServer.h"

#include <QTimer>

#include <functional>
#include <memory>

namespace zamber::x11 {

/// Borrows the PRIMARY selection for a paste into a program that pastes nothing else, and gives its former content
/// back. The program that it was borrowed from shows its text as selected no more; who pastes it gets it from us.
class PrimaryLoan final : public QObject {
    Q_OBJECT

public:
    using SelectionContent = freedesktop::selection::SelectionContent;

    PrimaryLoan(Connection& connection, AtomNames& names, IncomingTransfers& transfers, OutgoingTransfers& answers);

    /// Offers the content as PRIMARY. `done` is called when it is there: soon, whatever the present owner does.
    void borrow(const SelectionContent& content, std::function<void()> done);

    /// Offers again what was there before, unless somebody has selected something meanwhile.
    void giveBack();

Q_SIGNALS:
    /// The program of that window has asked for the content.
    void served(xcb_window_t requestor);

private:
    using CopyReader = freedesktop::selection::CopyReader;

    void keepFormer(const CopyReader::Outcome& outcome);
    void take();

    Connection& m_connection;
    AtomNames& m_names;
    IncomingTransfers& m_transfers;
    SelectionServer m_server;
    std::unique_ptr<SelectionReader> m_reader;
    QTimer m_patience;
    SelectionContent m_former;
    SelectionContent m_lent;
    std::function<void()> m_done;
    bool m_isWaitingForFormer = false;
    bool m_isBorrowed = false;
};

} // namespace zamber::x11
