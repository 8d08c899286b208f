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
#include <chrono>
#include <utility>

namespace zamber::wayland {

namespace {

/// The longest time that a dying program is given between the end of its pipes and that of its connection.
constexpr std::chrono::milliseconds LONGEST_DYING{100};

/// A compositor that drops the mark of a secret drops all of X's types that are no MIME types. Where one of those is
/// left, the mark would be left as well.
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
    // Not at once: when several changes come together, only the last one is worth a request.
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
    m_pipe.release()->deleteLater(); // this function is called by the pipe itself
    if (owned.outcome != OwnerAnswer::Outcome::Delivered) {
        answer(owned);
        return;
    }
    // A pipe is closed in the same way when its writer dies. In that case the compositor reports the owner's end before
    // it answers, and this reader has been stopped by then. The kernel closes a dying program's pipes before the
    // connection that the compositor watches, and on a busy machine there may be a while between the two.
    QTimer::singleShot(LONGEST_DYING, this, [this, owned, answer] {
        m_connection.afterRoundTrip(this, [owned, answer] { answer(owned); });
    });
}

} // namespace zamber::wayland
