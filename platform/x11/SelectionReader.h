// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/IncomingTransfer.h"
#include "platform/x11/SelectionProperty.h"
#include "platform/x11/SelectionServer.h"

#include <functional>
#include <variant>
#include <vector>

namespace zamber::x11 {

/// Finds out what a selection holds by as few requests as possible: its targets, the mark of password managers
/// where it is among them, and one image or text. Owners encode an image anew for each type that they are asked for,
/// so that asking for more than is needed makes them freeze.
class SelectionReader final : public QObject {
    Q_OBJECT

public:
    static constexpr int MOST_REQUESTS = 3;

    struct Secret {}; ///< marked as such; none of its data was asked for
    struct Failed {}; ///< the owner did not answer, or not by the rules
    using Outcome = std::variant<SelectionContent, Secret, Failed>;
    using Done = std::function<void(const Outcome&)>;

    /// Asks for the targets in the next turn of the loop; `done` is called later, and not after this object has gone.
    SelectionReader(Connection& connection, IncomingTransfers& transfers, const SelectionQuery& change, Done done);
    ~SelectionReader() override;

private:
    void ask(xcb_atom_t target, void (SelectionReader::*handle)(const std::optional<Property>&));
    void handleTargets(const std::optional<Property>& answer);
    void handleHint(const std::optional<Property>& answer);
    void handleData(const std::optional<Property>& answer);
    void askForNextCandidate();
    void finish(const Outcome& outcome);

    Connection& m_connection;
    IncomingTransfers& m_transfers;
    SelectionQuery m_change;
    Done m_done;
    AtomLookup m_atom;
    IncomingTransfer* m_transfer = nullptr; // under way
    bool m_hasHung = false;                 // the owner, when it was asked last
    int m_requests = 0;
    std::vector<xcb_atom_t> m_candidates; // to ask for, the best last
    xcb_atom_t m_asked = XCB_ATOM_NONE;
};

} // namespace zamber::x11
