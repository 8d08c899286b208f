// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/CopyReader.h"
#include "platform/x11/AtomNames.h"
#include "platform/x11/IncomingTransfer.h"

#include <functional>

namespace zamber::x11 {

/// Reads a selection: asks its owner for the targets, and hands the reader of copies one answer after the other.
class SelectionReader final : public QObject {
    Q_OBJECT

public:
    using CopyReader = freedesktop::selection::CopyReader;

    /// Asks for the targets in the next turn of the loop; `tell` is called later, and not after this object has gone.
    SelectionReader(Connection& connection, AtomNames& names, IncomingTransfers& transfers,
                    const SelectionQuery& change, CopyReader::Tell tell);
    ~SelectionReader() override;

private:
    void ask(xcb_atom_t target, IncomingTransfer::Done handle);
    void handleTargets(TransferEnd end, const Property& answer);

    Connection& m_connection;
    AtomNames& m_names;
    IncomingTransfers& m_transfers;
    SelectionQuery m_change;
    IncomingTransfer* m_transfer = nullptr; // under way
    CopyReader m_reader;
};

} // namespace zamber::x11
