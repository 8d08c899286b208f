// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Pasteboard.h"

#include <xcb/xfixes.h>

#include <chrono>
#include <utility>

namespace zamber::x11 {

namespace {

/// A program that replaces its own offer may let go of the old one first; taking over in that gap would make the two
/// of us fight for the clipboard.
constexpr std::chrono::milliseconds TAKE_OVER_DELAY{150};

constexpr std::uint32_t WATCHED_CHANGES = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

} // namespace

X11Pasteboard::X11Pasteboard(Connection& connection)
    : m_connection(connection)
    , m_incoming(connection)
    , m_outgoing(connection)
    , m_clipboard(connection, m_outgoing, connection.atom(Atom::Clipboard))
    , m_primary(connection, m_outgoing, XCB_ATOM_PRIMARY)
    , m_manager(connection, m_outgoing, connection.atom(Atom::ClipboardManager)) {
    m_takeOverDelay.setSingleShot(true);
    m_takeOverDelay.setInterval(TAKE_OVER_DELAY);
    connect(&m_takeOverDelay, &QTimer::timeout, this, &X11Pasteboard::takeOver);
    connect(&m_clipboard, &SelectionServer::lost, this, &X11Pasteboard::ownershipChanged);
    m_manager.setSideEffect(connection.atom(Atom::SaveTargets),
                            [this](xcb_atom_t, std::function<void(bool)> done) { saveTargets(std::move(done)); });

    xcb_connection_t* const raw = connection.raw();
    const auto* const xfixes = xcb_get_extension_data(raw, &xcb_xfixes_id);
    xcb_discard_reply(raw, xcb_xfixes_query_version(raw, 5, 0).sequence);
    m_xfixesEvent = static_cast<std::uint8_t>(xfixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    for (const xcb_atom_t selection : {connection.atom(Atom::Clipboard), connection.atom(Atom::ClipboardManager)}) {
        xcb_xfixes_select_selection_input(raw, connection.root(), selection, WATCHED_CHANGES);
    }
    connection.addEventHandler([this](const xcb_generic_event_t& event) { handleOwnerChange(event); });
    readInitialContent();
    becomeManager();
}

X11Pasteboard::~X11Pasteboard() = default;

std::optional<QByteArray> X11Pasteboard::data(ImageType type) const {
    const freedesktop::selection::ImageFormat format =
        type == ImageType::Png ? freedesktop::selection::ImageFormat::Png : freedesktop::selection::ImageFormat::Tiff;
    return m_content.imageLabel == format ? m_content.image : std::nullopt;
}

void X11Pasteboard::clearContents() {
    write({});
}

void X11Pasteboard::setString(const QByteArray& text) {
    SelectionContent content = m_content;
    content.text = text;
    write(content);
}

void X11Pasteboard::setData(ImageType type, const QByteArray& bytes) {
    SelectionContent content = m_content;
    content.image = bytes;
    content.imageLabel =
        type == ImageType::Png ? freedesktop::selection::ImageFormat::Png : freedesktop::selection::ImageFormat::Tiff;
    write(content);
}

void X11Pasteboard::write(const SelectionContent& content) {
    stopReading();
    m_takeOverDelay.stop();
    m_content = content;
    m_source = Source::Ourselves;
    answerSavers();
    ++m_changeCount;
    // The clear and the setter that follows it come in one turn: one acquisition serves both.
    if (!std::exchange(m_isAcquiring, true)) {
        m_connection.requestTimestamp([this](xcb_timestamp_t) { acquire(); });
    }
}

void X11Pasteboard::acquire() {
    m_isAcquiring = false;
    if (m_source == Source::Ourselves) {
        m_clipboard.acquire(m_content, m_connection.lastTimestamp());
    }
    Q_EMIT ownershipChanged();
}

void X11Pasteboard::offerAsPrimary(std::function<void()> done) {
    m_connection.requestTimestamp([this, done = std::move(done)](xcb_timestamp_t time) {
        m_primary.acquire(m_content, time);
        done();
    });
}

void X11Pasteboard::handleOwnerChange(const xcb_generic_event_t& event) {
    if (codeOf(event) != m_xfixesEvent) {
        return;
    }
    const auto& change = as<xcb_xfixes_selection_notify_event_t>(event);
    m_connection.noteTimestamp(change.timestamp);
    if (change.selection == m_connection.atom(Atom::ClipboardManager)) {
        handleManagerChange(change.owner);
        return;
    }
    if (change.selection != m_connection.atom(Atom::Clipboard)) {
        return;
    }
    if (change.owner == m_clipboard.window()) {
        // Our own write, which is not to be read again; somebody who came just before it has lost.
        if (m_clipboard.isOwner()) {
            stopReading();
            m_source = Source::Ourselves;
        }
        return;
    }
    m_takeOverDelay.stop();
    if (change.owner != XCB_WINDOW_NONE) {
        startReading(change.owner, change.selection_timestamp, true);
    } else if (change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) {
        stopReading();
        handleReading(SelectionContent{}, true); // cleared on purpose
    } else {
        handleLoss();
    }
}

void X11Pasteboard::readInitialContent() {
    const auto cookie = xcb_get_selection_owner(m_connection.raw(), m_connection.atom(Atom::Clipboard));
    const Owned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection.raw(), cookie, nullptr));
    if (!reply || reply->owner == XCB_WINDOW_NONE) {
        return;
    }
    m_connection.requestTimestamp([this, owner = reply->owner](xcb_timestamp_t time) {
        if (!m_reader && m_source == Source::Nothing) {
            startReading(owner, time, false);
        }
    });
}

void X11Pasteboard::startReading(xcb_window_t owner, xcb_timestamp_t time, bool countsAsChange) {
    stopReading();
    const SelectionQuery change{
        .selection = m_connection.atom(Atom::Clipboard), .target = XCB_ATOM_NONE, .time = time, .owner = owner};
    // What is held now is not what the new owner has, so that it is not to be served in its name.
    m_source = Source::Nothing;
    m_reader = std::make_unique<SelectionReader>(
        m_connection, m_incoming, change,
        [this, countsAsChange](const SelectionReader::Outcome& outcome) { handleReading(outcome, countsAsChange); });
}

void X11Pasteboard::handleReading(const SelectionReader::Outcome& outcome, bool countsAsChange) {
    if (m_reader) {
        m_reader.release()->deleteLater(); // it is the one that calls
    }
    if (const auto* content = std::get_if<SelectionContent>(&outcome)) {
        m_content = *content;
        m_source = Source::Foreign;
    } else if (std::holds_alternative<SelectionReader::Secret>(outcome)) {
        m_content = {};
        m_source = Source::Secret;
    }
    if (countsAsChange && !std::holds_alternative<SelectionReader::Failed>(outcome)) {
        ++m_changeCount;
    }
    answerSavers();
}

void X11Pasteboard::stopReading() {
    m_reader.reset();
}

void X11Pasteboard::handleLoss() {
    stopReading();
    answerSavers();
    if (m_source == Source::Foreign && !m_content.isEmpty()) {
        m_takeOverDelay.start();
    }
}

void X11Pasteboard::takeOver() {
    const auto cookie = xcb_get_selection_owner(m_connection.raw(), m_connection.atom(Atom::Clipboard));
    const Owned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection.raw(), cookie, nullptr));
    if (!reply || reply->owner != XCB_WINDOW_NONE) {
        return;
    }
    m_source = Source::Ourselves;
    if (!std::exchange(m_isAcquiring, true)) {
        m_connection.requestTimestamp([this](xcb_timestamp_t) { acquire(); });
    }
}

void X11Pasteboard::handleManagerChange(xcb_window_t owner) {
    if (owner == XCB_WINDOW_NONE) {
        becomeManager();
    }
}

void X11Pasteboard::becomeManager() {
    m_connection.requestTimestamp([this](xcb_timestamp_t time) {
        const auto cookie = xcb_get_selection_owner(m_connection.raw(), m_connection.atom(Atom::ClipboardManager));
        const Owned<xcb_get_selection_owner_reply_t> reply(
            xcb_get_selection_owner_reply(m_connection.raw(), cookie, nullptr));
        if (reply && reply->owner == XCB_WINDOW_NONE && m_manager.acquire({}, time)) {
            // Those who wait for a manager are told that there is one (ICCCM, section 2.8).
            m_connection.tellRoot(m_connection.root(), m_connection.atom(Atom::Manager),
                                  {time, m_connection.atom(Atom::ClipboardManager), m_manager.window(), 0, 0},
                                  XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        }
    });
}

void X11Pasteboard::saveTargets(std::function<void(bool)> done) {
    m_savers.push_back(std::move(done));
    if (!m_reader) {
        answerSavers();
    }
}

void X11Pasteboard::answerSavers() {
    const bool isSaved = m_source == Source::Foreign || m_source == Source::Ourselves;
    for (const auto& done : std::exchange(m_savers, {})) {
        done(isSaved);
    }
}

} // namespace zamber::x11
