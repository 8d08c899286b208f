// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SelectionReader.h"

#include "platform/x11/SelectionProperty.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace zamber::x11 {

SelectionReader::SelectionReader(Connection& connection, IncomingTransfers& transfers, const SelectionQuery& change,
                                 Done done)
    : m_connection(connection)
    , m_transfers(transfers)
    , m_change(change)
    , m_done(std::move(done))
    , m_atom([&connection](Atom atom) { return connection.atom(atom); }) {
    // Not at once: of the changes that come in one go only the last is worth a request.
    QTimer::singleShot(0, this, [this] { ask(m_connection.atom(Atom::Targets), &SelectionReader::handleTargets); });
}

SelectionReader::~SelectionReader() {
    if (m_transfer != nullptr) {
        m_transfer->abandon();
    }
}

void SelectionReader::ask(xcb_atom_t target, void (SelectionReader::*handle)(const std::optional<Property>&)) {
    ++m_requests;
    m_asked = target;
    SelectionQuery query = m_change;
    query.target = target;
    m_transfer = &m_transfers.ask(query, [this, handle](const std::optional<Property>& answer) {
        m_hasHung = !std::exchange(m_transfer, nullptr)->isOver();
        (this->*handle)(answer);
    });
}

void SelectionReader::handleTargets(const std::optional<Property>& answer) {
    const auto offered = answer ? offeredTargets(*answer, m_atom) : std::nullopt;
    if (!offered) {
        // The owner cannot tell; the two names that every program of old knows are worth the two requests left.
        m_candidates = {XCB_ATOM_STRING, m_connection.atom(Atom::Utf8String)};
        askForNextCandidate();
        return;
    }
    m_candidates = readableTargets(*offered, m_atom);
    std::ranges::reverse(m_candidates);

    if (std::ranges::find(*offered, m_connection.atom(Atom::PasswordManagerHint)) != offered->end()) {
        ask(m_connection.atom(Atom::PasswordManagerHint), &SelectionReader::handleHint);
    } else if (m_candidates.empty()) {
        finish(SelectionContent{}); // files, say: a change, but with nothing in it for us
    } else {
        askForNextCandidate();
    }
}

void SelectionReader::handleHint(const std::optional<Property>& answer) {
    if (answer && saysSecret(*answer)) {
        finish(Secret{});
    } else if (m_hasHung) {
        finish(Failed{}); // it may have been about to say so
    } else if (m_candidates.empty()) {
        finish(SelectionContent{});
    } else {
        askForNextCandidate();
    }
}

void SelectionReader::askForNextCandidate() {
    if (m_candidates.empty() || m_requests == MOST_REQUESTS) {
        finish(Failed{});
        return;
    }
    const xcb_atom_t target = m_candidates.back();
    m_candidates.pop_back();
    ask(target, &SelectionReader::handleData);
}

void SelectionReader::handleData(const std::optional<Property>& answer) {
    if (!answer || answer->format != 8) {
        askForNextCandidate();
        return;
    }
    if (!isImageType(m_asked, m_atom)) {
        if (const std::optional<QByteArray> text = textOf(*answer, m_atom)) {
            finish(SelectionContent{.text = text, .image = {}});
        } else {
            askForNextCandidate();
        }
        return;
    }
    if (!isImageType(answer->type, m_atom) || answer->bytes.isEmpty()) {
        askForNextCandidate();
    } else if (answer->type == m_connection.atom(Atom::ImagePng)) {
        finish(SelectionContent{
            .text = {}, .image = answer->bytes, .imageLabel = freedesktop::selection::ImageFormat::Png});
    } else if (answer->type == m_connection.atom(Atom::ImageTiff)) {
        finish(SelectionContent{
            .text = {}, .image = answer->bytes, .imageLabel = freedesktop::selection::ImageFormat::Tiff});
    } else {
        freedesktop::selection::convertImage(
            answer->bytes, freedesktop::selection::ImageFormat::Png, this, [this](const QByteArray& png) {
                if (png.isEmpty()) {
                    askForNextCandidate();
                } else {
                    finish(SelectionContent{
                        .text = {}, .image = png, .imageLabel = freedesktop::selection::ImageFormat::Png});
                }
            });
    }
}

void SelectionReader::finish(const Outcome& outcome) {
    // The owner of this object may end it in the call.
    const Done done = std::move(m_done);
    done(outcome);
}

} // namespace zamber::x11
