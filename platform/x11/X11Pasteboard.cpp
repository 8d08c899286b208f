// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Pasteboard.h"

#include <QCoreApplication>

#include <xcb/xfixes.h>

#include <utility>

namespace zamber::x11 {

namespace {

using freedesktop::selection::OwnerLoss;

constexpr std::uint32_t WATCHED_CHANGES = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

} // namespace

X11Pasteboard::X11Pasteboard(Connection& connection)
    : m_connection(connection)
    , m_names(connection)
    , m_owner(connection)
    , m_incoming(connection)
    , m_outgoing(connection)
    , m_clipboard(connection, m_names, m_outgoing, connection.atom(Atom::Clipboard))
    , m_primary(connection, m_names, m_incoming, m_outgoing)
    , m_manager(connection, m_names, m_outgoing, connection.atom(Atom::ClipboardManager))
    , m_handOver(connection, m_names) {
    connect(&m_clipboard, &SelectionServer::lost, this, &X11Pasteboard::ownershipChanged);
    connect(&m_clipboard, &SelectionServer::served, this, &X11Pasteboard::served);
    connect(&m_primary, &PrimaryLoan::served, this, &X11Pasteboard::served);
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &X11Pasteboard::handOver);
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

// The reader that the base class holds goes before the transfers that it asks by.
X11Pasteboard::~X11Pasteboard() {
    stopReading();
}

void X11Pasteboard::publish(const SelectionContent& content) {
    m_toAcquire = content;
    // The clear and the setter that follows it come in one turn: one acquisition serves both.
    if (!std::exchange(m_isAcquiring, true)) {
        m_connection.requestTimestamp([this](xcb_timestamp_t) { acquire(); });
    }
}

void X11Pasteboard::acquire() {
    m_isAcquiring = false;
    if (const auto content = std::exchange(m_toAcquire, std::nullopt)) {
        m_clipboard.acquire(*content, m_connection.lastTimestamp());
        noteOffered();
    }
    endPublishing();
}

bool X11Pasteboard::hasOwner() const {
    return m_connection.selectionOwner(m_connection.atom(Atom::Clipboard)) != XCB_WINDOW_NONE;
}

bool X11Pasteboard::isFormerOwnerRunning() const {
    return m_owner.isRunning();
}

void X11Pasteboard::borrowPrimary(int changeCount, std::function<void()> done) {
    m_primary.borrow(contentAt(changeCount), std::move(done));
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
            handleOwnEcho();
        }
        return;
    }
    if (isWriteOnItsWay()) {
        return; // older than the write that is on its way to the server
    }
    m_toAcquire.reset();
    if (change.owner != XCB_WINDOW_NONE) {
        readFrom(change.owner, change.selection_timestamp, Counts::AsChange);
    } else if (change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) {
        handleLoss(OwnerLoss::Cleared);
        handleCleared();
    } else {
        handleLoss(OwnerLoss::Gone);
    }
}

void X11Pasteboard::readInitialContent() {
    const xcb_window_t initialOwner = m_connection.selectionOwner(m_connection.atom(Atom::Clipboard));
    if (initialOwner == XCB_WINDOW_NONE) {
        return;
    }
    m_connection.requestTimestamp([this, owner = initialOwner](xcb_timestamp_t time) {
        if (isUntouched()) {
            readFrom(owner, time, Counts::NotAtAll);
        }
    });
}

void X11Pasteboard::readFrom(xcb_window_t owner, xcb_timestamp_t time, Counts counts) {
    const SelectionQuery change{
        .selection = m_connection.atom(Atom::Clipboard), .target = XCB_ATOM_NONE, .time = time, .owner = owner};
    startReading(
        [this, &change](CopyReader::Tell tell) {
            m_owner.note(change.owner);
            return std::make_unique<SelectionReader>(m_connection, m_names, m_incoming, change, std::move(tell));
        },
        counts);
}

void X11Pasteboard::handleManagerChange(xcb_window_t owner) {
    if (owner == XCB_WINDOW_NONE) {
        becomeManager();
    }
}

void X11Pasteboard::becomeManager() {
    m_connection.requestTimestamp([this](xcb_timestamp_t time) {
        const xcb_window_t manager = m_connection.selectionOwner(m_connection.atom(Atom::ClipboardManager));
        if (manager == XCB_WINDOW_NONE && m_manager.acquire({}, time)) {
            // Those who wait for a manager are told that there is one (ICCCM, section 2.8).
            m_connection.tellRoot(m_connection.root(), m_connection.atom(Atom::Manager),
                                  {time, m_connection.atom(Atom::ClipboardManager), m_manager.window(), 0, 0},
                                  XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        }
    });
}

void X11Pasteboard::saveTargets(std::function<void(bool)> done) {
    m_savers.push_back(std::move(done));
    if (!isReading()) {
        handleSettled();
    }
}

void X11Pasteboard::handleSettled() {
    for (const auto& done : std::exchange(m_savers, {})) {
        done(holdsContent());
    }
}

void X11Pasteboard::handOver() {
    const xcb_window_t manager = m_connection.selectionOwner(m_connection.atom(Atom::ClipboardManager));
    if (manager == XCB_WINDOW_NONE || manager == m_manager.window()) {
        return;
    }
    m_connection.serveInPlace([this] { return !m_isAcquiring; }, ClipboardHandOver::LONGEST);
    if (m_clipboard.isOwner() && !m_clipboard.typesToSave().empty()) {
        m_handOver.run(manager, m_clipboard.typesToSave());
    }
}

} // namespace zamber::x11
