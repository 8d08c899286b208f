// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SelectionReader.h"

#include "platform/x11/SelectionProperty.h"

#include <QTimer>

#include <utility>

namespace zamber::x11 {

namespace {

using freedesktop::selection::OwnerAnswer;

OwnerAnswer::Outcome outcomeOf(TransferEnd end, const Property& answer) {
    switch (end) {
    case TransferEnd::Delivered:
        // An answer of no length, piece by piece, has neither type nor format.
        return answer.format == 8 || answer.bytes.isEmpty() ? OwnerAnswer::Outcome::Delivered
                                                            : OwnerAnswer::Outcome::Refused;
    case TransferEnd::Refused:
        return OwnerAnswer::Outcome::Refused;
    case TransferEnd::Silent:
        return OwnerAnswer::Outcome::Silent;
    case TransferEnd::BrokenOff:
        return OwnerAnswer::Outcome::BrokenOff;
    }
    return OwnerAnswer::Outcome::Refused;
}

} // namespace

SelectionReader::SelectionReader(Connection& connection, AtomNames& names, IncomingTransfers& transfers,
                                 const SelectionQuery& change, CopyReader::Tell tell)
    : m_connection(connection)
    , m_names(names)
    , m_transfers(transfers)
    , m_change(change)
    , m_reader(
          [this](const QByteArray& type, const std::function<void(const OwnerAnswer&)>& answer) {
              ask(m_names.atomOf(type), [this, answer](TransferEnd end, const Property& property) {
                  answer({.outcome = outcomeOf(end, property),
                          .type = m_names.nameOf(property.type),
                          .bytes = property.bytes});
              });
          },
          std::move(tell)) {
    // In the loop's next turn: of several changes in one turn only the last is worth a request.
    QTimer::singleShot(0, this, [this] {
        ask(m_connection.atom(Atom::Targets),
            [this](TransferEnd end, const Property& answer) { handleTargets(end, answer); });
    });
}

SelectionReader::~SelectionReader() {
    if (m_transfer != nullptr) {
        m_transfer->abandon();
    }
}

void SelectionReader::ask(xcb_atom_t target, IncomingTransfer::Done handle) {
    SelectionQuery query = m_change;
    query.target = target;
    m_transfer = &m_transfers.ask(query, [this, handle = std::move(handle)](TransferEnd end, const Property& answer) {
        m_transfer = nullptr;
        handle(end, answer);
    });
}

void SelectionReader::handleTargets(TransferEnd end, const Property& answer) {
    const auto targets =
        end == TransferEnd::Delivered ? offeredTargets(answer, m_connection.atom(Atom::Targets)) : std::nullopt;
    m_reader.begin(targets ? std::optional(m_names.namesOf(*targets)) : std::nullopt);
}

} // namespace zamber::x11
