// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/SelectionReader.h"
#include "platform/x11/SelectionServer.h"

#include <QTimer>

#include <functional>
#include <memory>

namespace zamber::x11 {

/// Borrows the PRIMARY selection for a paste into a program that pastes nothing else, and then offers its former
/// content again. Its former owner no longer shows the text as selected; programs that paste it get it from this one.
class PrimaryLoan final : public QObject {
    Q_OBJECT

public:
    using SelectionContent = freedesktop::selection::SelectionContent;

    PrimaryLoan(Connection& connection, AtomNames& names, IncomingTransfers& transfers, OutgoingTransfers& answers);

    /// Offers the content as PRIMARY. `done` is called when it is there: soon, whatever the present owner does.
    void borrow(const SelectionContent& content, std::function<void()> done);

    /// Offers the former content again, unless the user has selected something meanwhile.
    void giveBack();

Q_SIGNALS:
    /// The program that the window belongs to has asked for the content.
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
