// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/AtomNames.h"
#include "platform/x11/IncomingTransfer.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace zamber::x11 {

/// Whether what a program of X has copied is marked as a secret, for compositors that pass the copy on to Wayland
/// without its mark.
class SecretMark final : public QObject {
    Q_OBJECT

public:
    /// Nothing when the program does not answer.
    using Answer = std::function<void(std::optional<bool> isSecret)>;

    explicit SecretMark(Connection& connection);

    /// Asks the owner of CLIPBOARD; not secret when nobody of X owns it, or one whose copy is not the one that is
    /// offered on Wayland in these types. Calls back later, unless it is asked again before that.
    void ask(const std::vector<QByteArray>& offered, Answer answer);

private:
    void askOwner(xcb_timestamp_t time);
    void handleTargets(TransferEnd end, const Property& answer);
    void handleMark(TransferEnd end, const Property& answer);
    void abandon();
    void tell(std::optional<bool> isSecret);

    Connection& m_connection;
    AtomNames m_names;
    IncomingTransfers m_transfers;
    IncomingTransfer* m_transfer = nullptr; // under way
    SelectionQuery m_query;
    std::vector<QByteArray> m_offered;
    Answer m_answer;
    int m_questions = 0;
};

} // namespace zamber::x11
