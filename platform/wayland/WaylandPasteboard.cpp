// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandPasteboard.h"

#include "platform/wayland/Connection.h"

#include <QRandomGenerator>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace zamber::wayland {

namespace {

using freedesktop::selection::OwnerLoss;
using freedesktop::selection::SelectionOffer;

bool isOffered(const DataOffer& offer, const QByteArray& type) {
    return std::ranges::find(offer.types(), type) != offer.types().end();
}

} // namespace

WaylandPasteboard::WaylandPasteboard(Connection& connection, OfferReader::AskForMark askForMark)
    : m_connection(connection)
    , m_askForMark(std::move(askForMark))
    , m_control(DataControl::create(connection)) {
    Counts counts = Counts::NotAtAll; // a copy that is reported before the compositor has answered is an old one
    connect(m_control.get(), &DataControl::clipboardChanged, this,
            [this, &counts](const std::shared_ptr<DataOffer>& offer) { handleChange(offer, counts); });
    m_connection.roundTrip();
    m_control->disconnect(this);
    connect(m_control.get(), &DataControl::clipboardChanged, this,
            [this](const std::shared_ptr<DataOffer>& offer) { handleChange(offer, Counts::AsChange); });
}

WaylandPasteboard::~WaylandPasteboard() {
    stopReading();
}

void WaylandPasteboard::publish(const SelectionContent& content) {
    m_toPublish = content;
    // A clear and the setter after it come in one turn of the loop, so that one announcement serves both.
    if (!std::exchange(m_isPublishing, true)) {
        QTimer::singleShot(0, this, &WaylandPasteboard::announce);
    }
}

void WaylandPasteboard::announce() {
    if (!m_toPublish) {
        m_isPublishing = false; // by the copy of another program
        endPublishing();
        return;
    }
    m_isEchoed = false;
    put(m_clipboard, DataControl::Selection::Clipboard, *std::exchange(m_toPublish, std::nullopt));
}

void WaylandPasteboard::put(Publication& publication, DataControl::Selection selection,
                            const SelectionContent& content) {
    publication.offer.setContent(content);
    publication.mark = "application/x-zamber-" + QByteArray::number(QRandomGenerator::system()->generate64(), 16) +
                       '-' + QByteArray::number(static_cast<qulonglong>(++m_publications));
    std::vector<QByteArray> types = publication.offer.types();
    types.push_back(publication.mark);
    // The previous source is destroyed only now, so that the clipboard is not empty in between.
    publication.source = m_control->offer(
        selection, types,
        {.send = [this, &publication](const QByteArray& type,
                                      Descriptor writeTo) { serve(publication, type, std::move(writeTo)); },
         .cancelled = [this, &publication] { handleCancelled(publication); }});
}

void WaylandPasteboard::serve(Publication& publication, const QByteArray& type, Descriptor writeTo) {
    const auto pipe = std::make_shared<Descriptor>(std::move(writeTo));
    publication.offer.convert(type, [this, pipe](const std::optional<SelectionOffer::Data>& data) {
        m_outgoing.send(std::move(*pipe), data ? data->bytes : QByteArray());
        if (data) {
            Q_EMIT served(0);
        }
    });
}

void WaylandPasteboard::handleChange(const std::shared_ptr<DataOffer>& offer, Counts counts) {
    m_hasOwner = offer != nullptr;
    m_probe.reset();
    m_foreign.reset();
    if (offer && m_clipboard.source && isOffered(*offer, m_clipboard.mark)) {
        if (!std::exchange(m_isEchoed, true)) {
            noteOffered();
            handleOwnEcho();
            if (m_toPublish) {
                announce(); // the program has written since then
            } else {
                m_isPublishing = false;
                endPublishing();
            }
        }
        return;
    }
    if (isWriteOnItsWay()) {
        return; // an offer from before our last copy
    }
    m_toPublish.reset();
    if (!offer) {
        handleLoss(OwnerLoss::Gone);
        Q_EMIT ownershipChanged();
        return;
    }
    m_foreign = offer;
    startReading(
        [this, &offer](CopyReader::Tell tell) {
            return std::make_unique<OfferReader>(m_connection, offer, m_askForMark, std::move(tell));
        },
        counts);
}

void WaylandPasteboard::checkOwner() {
    if (!m_foreign || isWriteOnItsWay()) {
        return;
    }
    const auto candidates = freedesktop::selection::planReading(m_foreign->types()).candidates;
    if (candidates.empty()) {
        return;
    }
    m_probe = std::make_unique<OwnerProbe>(*m_foreign, candidates.front(), [this] {
        m_probe.release()->deleteLater(); // it is the one that calls
        m_hasOwner = false;
        handleLoss(OwnerLoss::Gone);
        Q_EMIT ownershipChanged();
    });
}

void WaylandPasteboard::handleCancelled(Publication& publication) {
    publication.source.reset();
    if (&publication == &m_clipboard) {
        // The next event names the new copy, or says that there is none.
        m_isEchoed = false;
        if (m_isPublishing) {
            QTimer::singleShot(0, this, &WaylandPasteboard::announce);
        }
    }
}

void WaylandPasteboard::borrowPrimary(int changeCount, std::function<void()> done) {
    put(m_primary, DataControl::Selection::Primary, contentAt(changeCount));
    m_connection.afterRoundTrip(this, std::move(done));
}

void WaylandPasteboard::giveBackPrimary() {
    m_primary.source.reset();
}

} // namespace zamber::wayland
