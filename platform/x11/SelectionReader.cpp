// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SelectionReader.h"

#include "platform/x11/SelectionText.h"

#include <QTimer>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace zamber::x11 {

namespace {

/// From the best to the last resort. TIFF is what programs here encode largest; the others need converting.
constexpr std::array IMAGES{Atom::ImagePng, Atom::ImageTiff, Atom::ImageJpeg,  Atom::ImageWebp,
                            Atom::ImageBmp, Atom::ImageXBmp, Atom::ImageXMsBmp};

constexpr std::array TEXTS{Atom::Utf8String, Atom::TextPlainUtf8, Atom::TextPlainUtf8Capitals};

constexpr std::array LESSER_TEXTS{Atom::TextPlain, Atom::Text};

std::vector<xcb_atom_t> atomsOf(const Property& property) {
    std::vector<xcb_atom_t> atoms(static_cast<std::size_t>(property.bytes.size()) / sizeof(xcb_atom_t));
    if (!atoms.empty()) { // memcpy may not be given an empty vector's null
        std::memcpy(atoms.data(), property.bytes.constData(), atoms.size() * sizeof(xcb_atom_t));
    }
    return atoms;
}

} // namespace

SelectionReader::SelectionReader(Connection& connection, IncomingTransfers& transfers, const SelectionQuery& change,
                                 Done done)
    : m_connection(connection)
    , m_transfers(transfers)
    , m_change(change)
    , m_done(std::move(done)) {
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
        m_transfer = nullptr;
        (this->*handle)(answer);
    });
}

void SelectionReader::handleTargets(const std::optional<Property>& answer) {
    const bool isList = answer && answer->format == 32 &&
                        (answer->type == XCB_ATOM_ATOM || answer->type == m_connection.atom(Atom::Targets));
    if (!isList) {
        // The owner cannot tell; the two names that every program of old knows are worth the two requests left.
        m_candidates = {XCB_ATOM_STRING, m_connection.atom(Atom::Utf8String)};
        askForNextCandidate();
        return;
    }
    const std::vector<xcb_atom_t> offered = atomsOf(*answer);
    const auto isOffered = [&offered](xcb_atom_t atom) { return std::ranges::find(offered, atom) != offered.end(); };
    const auto addOffered = [&](const auto& atoms) {
        for (const Atom atom : atoms) {
            if (isOffered(m_connection.atom(atom))) {
                m_candidates.push_back(m_connection.atom(atom));
            }
        }
    };
    addOffered(IMAGES);
    addOffered(TEXTS);
    if (isOffered(XCB_ATOM_STRING)) {
        m_candidates.push_back(XCB_ATOM_STRING);
    }
    addOffered(LESSER_TEXTS);
    std::ranges::reverse(m_candidates);

    if (isOffered(m_connection.atom(Atom::PasswordManagerHint))) {
        ask(m_connection.atom(Atom::PasswordManagerHint), &SelectionReader::handleHint);
    } else if (m_candidates.empty()) {
        finish(SelectionContent{}); // files, say: a change, but with nothing in it for us
    } else {
        askForNextCandidate();
    }
}

void SelectionReader::handleHint(const std::optional<Property>& answer) {
    // Programs put other values there too, meaning no secret.
    if (answer && answer->format == 8 && answer->bytes == "secret") {
        finish(Secret{});
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
    if (!isImage(m_asked)) {
        if (const std::optional<QByteArray> text = textOf(*answer)) {
            finish(SelectionContent{.text = text, .image = {}});
        } else {
            askForNextCandidate();
        }
        return;
    }
    if (!isImage(answer->type) || answer->bytes.isEmpty()) {
        askForNextCandidate();
    } else if (answer->type == m_connection.atom(Atom::ImagePng)) {
        finish(SelectionContent{.text = {}, .image = answer->bytes, .imageLabel = ImageFormat::Png});
    } else if (answer->type == m_connection.atom(Atom::ImageTiff)) {
        finish(SelectionContent{.text = {}, .image = answer->bytes, .imageLabel = ImageFormat::Tiff});
    } else {
        convertImage(answer->bytes, ImageFormat::Png, this, [this](const QByteArray& png) {
            if (png.isEmpty()) {
                askForNextCandidate();
            } else {
                finish(SelectionContent{.text = {}, .image = png, .imageLabel = ImageFormat::Png});
            }
        });
    }
}

bool SelectionReader::isImage(xcb_atom_t type) const {
    return std::ranges::any_of(IMAGES, [&](Atom image) { return m_connection.atom(image) == type; });
}

std::optional<QByteArray> SelectionReader::textOf(const Property& answer) const {
    if (answer.type == XCB_ATOM_STRING) {
        return utf8FromLatin1(answer.bytes);
    }
    const auto isAnswer = [&](Atom text) { return m_connection.atom(text) == answer.type; };
    if (std::ranges::any_of(TEXTS, isAnswer) || isAnswer(Atom::TextPlain)) {
        return repairedUtf8(answer.bytes);
    }
    // A name without an encoding says nothing, an empty answer of INCR has no type at all.
    return answer.bytes.isEmpty() ? std::optional(QByteArray()) : std::nullopt;
}

void SelectionReader::finish(const Outcome& outcome) {
    // The owner of this object may end it in the call.
    const Done done = std::move(m_done);
    done(outcome);
}

} // namespace zamber::x11
