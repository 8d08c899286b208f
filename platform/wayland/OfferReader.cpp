// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/OfferReader.h"

#include "platform/wayland/Connection.h"

#include <QPointer>
#include <QTimer>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace zamber::wayland {

namespace {

/// Compositors that drop a mark of X drop whatever is no MIME type; where one is left, the mark would be, too.
bool mayLackItsMark(const std::vector<QByteArray>& types) {
    return std::ranges::all_of(types, [](const QByteArray& type) { return type.contains('/'); });
}

} // namespace

OfferReader::OfferReader(Connection& connection, std::shared_ptr<DataOffer> offer, const AskForMark& askForMark,
                         CopyReader::Tell tell)
    : m_connection(connection)
    , m_offer(std::move(offer))
    , m_tell(std::move(tell))
    , m_reader([this](const QByteArray& type, const Answer& answer) { ask(type, answer); }, m_tell) {
    // Not at once: of the changes that come in one go only the last is worth a request.
    QTimer::singleShot(0, this, [this, askForMark] { begin(askForMark); });
}

void OfferReader::begin(const AskForMark& askForMark) {
    if (!askForMark || !mayLackItsMark(m_offer->types())) {
        handleMark(false);
        return;
    }
    askForMark(m_offer->types(), [self = QPointer(this)](std::optional<bool> isSecret) {
        if (self) {
            self->handleMark(isSecret);
        }
    });
}

void OfferReader::handleMark(std::optional<bool> isSecret) {
    if (!isSecret) {
        m_tell(CopyReader::Failed{});
    } else if (*isSecret) {
        m_tell(CopyReader::Secret{});
    } else {
        m_reader.begin(m_offer->types());
    }
}

void OfferReader::ask(const QByteArray& type, const Answer& answer) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        QTimer::singleShot(0, this, [answer] { answer({}); });
        return;
    }
    Descriptor readFrom(ends[0]);
    const Descriptor writeTo(ends[1]);
    m_offer->receive(type, writeTo.number());
    m_pipe = std::make_unique<IncomingPipe>(
        std::move(readFrom), [this, type, answer](OwnerAnswer::Outcome outcome, const QByteArray& bytes) {
            handlePipe({.outcome = outcome, .type = type, .bytes = bytes}, answer);
        });
}

void OfferReader::handlePipe(const OwnerAnswer& owned, const Answer& answer) {
    m_pipe.release()->deleteLater(); // it is the one that calls
    if (owned.outcome != OwnerAnswer::Outcome::Delivered) {
        answer(owned);
        return;
    }
    // A pipe ends in the same way when its writer dies. The compositor has told of that, and this reading has been
    // stopped, before it answers.
    m_connection.afterRoundTrip(this, [owned, answer] { answer(owned); });
}

} // namespace zamber::wayland
