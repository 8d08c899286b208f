// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Pasteboard.h"

#include <QCoreApplication>

#include <xcb/xfixes.h>

#include <chrono>
#include <utility>

namespace zamber::x11 {

namespace {

using freedesktop::selection::OwnerLoss;
using freedesktop::selection::TakeOver;

/// Who owns our content again by itself does so within this time; a user who copies it takes longer to get there.
constexpr std::chrono::milliseconds ECHO_TIME{2000};

/// Some programs copy the same content every second for ever. Counted each time, the history would never come to rest
/// for the second after which it is saved.
constexpr std::chrono::milliseconds REPEAT_TIME{2000};

constexpr std::uint32_t WATCHED_CHANGES = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

} // namespace

X11Pasteboard::X11Pasteboard(Connection& connection)
    : m_connection(connection)
    , m_names(connection)
    , m_clients(connection)
    , m_incoming(connection)
    , m_outgoing(connection)
    , m_clipboard(connection, m_names, m_outgoing, connection.atom(Atom::Clipboard))
    , m_primary(connection, m_names, m_incoming, m_outgoing)
    , m_manager(connection, m_names, m_outgoing, connection.atom(Atom::ClipboardManager))
    , m_handOver(connection, m_names) {
    m_takeOverDelay.setSingleShot(true);
    m_takeOverDelay.setInterval(TakeOver::DELAY);
    connect(&m_takeOverDelay, &QTimer::timeout, this, &X11Pasteboard::takeOver);
    m_countAgain.setSingleShot(true);
    connect(&m_countAgain, &QTimer::timeout, this, &X11Pasteboard::countAgain);
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
    m_takeOver.cancel();
    m_content = content;
    m_source = Source::Ourselves;
    m_countAgain.stop();
    answerSavers();
    m_writes.note(++m_changeCount, content);
    if (!m_areWritesHeld) {
        m_offered = m_changeCount;
        put(content);
    }
}

void X11Pasteboard::put(const SelectionContent& content) {
    m_isOfferedByOther = false;
    m_toAcquire = content;
    // The clear and the setter that follows it come in one turn: one acquisition serves both.
    if (!std::exchange(m_isAcquiring, true)) {
        m_connection.requestTimestamp([this](xcb_timestamp_t) { acquire(); });
    }
}

void X11Pasteboard::acquire() {
    m_isAcquiring = false;
    m_isTakingOver = false;
    if (const auto content = std::exchange(m_toAcquire, std::nullopt)) {
        m_clipboard.acquire(*content, m_connection.lastTimestamp());
        m_sinceOffer.start();
    }
    Q_EMIT ownershipChanged();
}

X11Pasteboard::Standing X11Pasteboard::standingOf(int changeCount) const {
    if (m_writes.find(changeCount) == nullptr) {
        return Standing::Lost;
    }
    const bool isOffered = m_clipboard.isOwner() || m_isOfferedByOther;
    return isOffered && m_offered == changeCount && !m_isAcquiring && !m_reader ? Standing::Offered : Standing::Pending;
}

void X11Pasteboard::offer(int changeCount) {
    const SelectionContent* const content = m_writes.find(changeCount);
    // Whoever is being read may have copied, which counts more, or may have taken over what we offered, which will do.
    const bool isUnderWay = m_reader || (m_isAcquiring && m_offered == changeCount);
    if (content != nullptr && !isUnderWay && standingOf(changeCount) != Standing::Offered) {
        m_offered = changeCount;
        put(*content);
    }
}

void X11Pasteboard::showWrites() {
    m_areWritesHeld = false;
    if (const std::optional<int> last = m_writes.last(); last && *last != m_offered) {
        offer(*last);
    }
}

void X11Pasteboard::borrowPrimary(int changeCount, std::function<void()> done) {
    const SelectionContent* const written = m_writes.find(changeCount);
    m_primary.borrow(written != nullptr ? *written : m_content, std::move(done));
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
    if (m_isAcquiring && m_source == Source::Ourselves && !m_isTakingOver) {
        return; // older than the write that is on its way to the server
    }
    m_toAcquire.reset();
    m_isOfferedByOther = false;
    if (change.owner != XCB_WINDOW_NONE) {
        startReading(change.owner, change.selection_timestamp, true);
    } else if (change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) {
        handleLoss(OwnerLoss::Cleared);
        handleReading(CopyReader::Arrived{}, true);
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
        if (!m_reader && m_source == Source::Nothing) {
            startReading(owner, time, false);
        }
    });
}

void X11Pasteboard::startReading(xcb_window_t owner, xcb_timestamp_t time, bool countsAsChange) {
    stopReading();
    m_takeOverDelay.stop();
    m_takeOver.cancel();
    m_owner = {.window = owner, .process = m_clients.processOf(owner)};
    const SelectionQuery change{
        .selection = m_connection.atom(Atom::Clipboard), .target = XCB_ATOM_NONE, .time = time, .owner = owner};
    // What is held now is not what the new owner has, so that it is not to be served in its name.
    m_source = Source::Nothing;
    m_reader = std::make_unique<SelectionReader>(
        m_connection, m_names, m_incoming, change,
        [this, countsAsChange](const CopyReader::Outcome& outcome) { handleReading(outcome, countsAsChange); });
}

void X11Pasteboard::handleReading(const CopyReader::Outcome& outcome, bool countsAsChange) {
    if (m_readerOfMore) {
        handleMore(std::get<CopyReader::Arrived>(outcome));
        return;
    }
    std::unique_ptr<SelectionReader> reader = std::move(m_reader);
    if (const auto* arrived = std::get_if<CopyReader::Arrived>(&outcome)) {
        m_readerOfMore = arrived->isComplete ? nullptr : std::move(reader);
        handleContent(arrived->content, countsAsChange);
    } else {
        m_writes.forget();
        m_countAgain.stop();
        if (std::holds_alternative<CopyReader::Secret>(outcome)) {
            m_content = {};
            m_source = Source::Secret;
            m_changeCount += countsAsChange ? 1 : 0;
        }
    }
    if (reader) {
        reader.release()->deleteLater(); // it is the one that calls
    }
    if (!m_readerOfMore) {
        answerSavers();
    }
    Q_EMIT ownershipChanged();
}

void X11Pasteboard::handleMore(const CopyReader::Arrived& more) {
    if (!m_isOfferedByOther) { // what this program wrote is known already
        m_content = more.content;
    }
    m_readerOfMore.release()->deleteLater();
    answerSavers();
    Q_EMIT ownershipChanged();
}

void X11Pasteboard::handleContent(const SelectionContent& content, bool countsAsChange) {
    // The text beside an image comes only after it.
    const bool isSame = m_content.image == content.image && (content.image || m_content.text == content.text);
    const bool isRepeated = !content.isEmpty() && isSame;
    const std::optional<int> written = m_writes.newestEqualTo(content);
    const bool isRecent = m_sinceOffer.isValid() && !m_sinceOffer.hasExpired(ECHO_TIME.count());
    m_source = Source::Foreign;
    if (written && isRecent) {
        // Programs that share the clipboard with another machine own it again with what they have got from us.
        m_offered = *written;
        m_isOfferedByOther = true;
        m_sinceOffer.start();
        return;
    }
    m_writes.forget();
    m_content = content;
    if (isRepeated && countsAsChange && m_sinceCounted.isValid() && !m_sinceCounted.hasExpired(REPEAT_TIME.count())) {
        if (!m_countAgain.isActive()) {
            m_countAgain.start(REPEAT_TIME - std::chrono::milliseconds(m_sinceCounted.elapsed()));
        }
        return;
    }
    m_countAgain.stop();
    if (countsAsChange) {
        countAgain();
    }
}

void X11Pasteboard::countAgain() {
    ++m_changeCount;
    m_sinceCounted.start();
}

void X11Pasteboard::stopReading() {
    m_reader.reset();
    m_readerOfMore.reset();
}

void X11Pasteboard::handleLoss(OwnerLoss loss) {
    stopReading();
    answerSavers();
    if (m_takeOver.begin(loss, m_source, m_content)) {
        m_sinceLoss.start();
        m_takeOverDelay.start();
    } else {
        m_takeOverDelay.stop();
    }
}

void X11Pasteboard::takeOver() {
    const bool hasOwner = m_connection.selectionOwner(m_connection.atom(Atom::Clipboard)) != XCB_WINDOW_NONE;
    switch (m_takeOver.verdict(hasOwner, isFormerOwnerRunning(), std::chrono::milliseconds(m_sinceLoss.elapsed()))) {
    case TakeOver::Verdict::Never:
        m_takeOver.cancel();
        return;
    case TakeOver::Verdict::NotYet:
        m_takeOverDelay.start();
        return;
    case TakeOver::Verdict::Now:
        break;
    }
    m_content = m_takeOver.content();
    m_takeOver.cancel();
    m_source = Source::Ourselves;
    m_isTakingOver = !m_isAcquiring;
    const SelectionContent* const written = m_writes.find(m_offered);
    put(written != nullptr ? *written : m_content);
}

bool X11Pasteboard::isFormerOwnerRunning() const {
    // Without an answer about the owner when it was one, there is no telling that it has gone.
    return !m_owner.process || m_clients.processOf(m_owner.window) == m_owner.process;
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
    if (!m_reader && !m_readerOfMore) {
        answerSavers();
    }
}

void X11Pasteboard::answerSavers() {
    const bool isSaved = m_source == Source::Foreign || m_source == Source::Ourselves;
    for (const auto& done : std::exchange(m_savers, {})) {
        done(isSaved);
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
