// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"
#include "platform/freedesktop/selection/TakeOver.h"
#include "platform/x11/AtomNames.h"
#include "platform/x11/Clients.h"
#include "platform/x11/ClipboardHandOver.h"
#include "platform/x11/IncomingTransfer.h"
#include "platform/x11/OutgoingTransfers.h"
#include "platform/x11/OwnWrites.h"
#include "platform/x11/PrimaryLoan.h"
#include "platform/x11/SelectionReader.h"
#include "platform/x11/SelectionServer.h"

#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zamber::x11 {

/// The CLIPBOARD selection as a pasteboard: a change counts when its content is completely here, and what was copied
/// outlives the program that it was copied from.
///
/// It is the clipboard manager of the session, too, where there is none: programs that quit hand it what they hold
/// (CLIPBOARD_MANAGER and SAVE_TARGETS, freedesktop.org's clipboard manager protocol). Where there is one, what this
/// program serves is handed to it at the end.
class X11Pasteboard final : public QObject, public Pasteboard {
    Q_OBJECT

public:
    explicit X11Pasteboard(Connection& connection);
    ~X11Pasteboard() override;

    int changeCount() const override { return m_changeCount; }
    std::optional<QByteArray> data(ImageType type) const override;
    std::optional<QByteArray> string() const override { return m_content.text; }
    void clearContents() override;
    void setString(const QByteArray& text) override;
    void setData(ImageType type, const QByteArray& bytes) override;

    /// How what this program wrote at that change count stands with the other programs.
    enum class Standing {
        Offered, ///< every program that pastes gets it
        Pending, ///< not yet, or not any more: `offer` may bring it back
        Lost,    ///< another program has copied since
    };
    Standing standingOf(int changeCount) const;

    /// Puts what was written at that change count on the clipboard, where it is not there and not lost; the program
    /// itself goes on seeing its last write. `ownershipChanged` tells when it has been done.
    void offer(int changeCount);

    /// From here on writes of this program are for itself alone; `showWrites` ends that and offers the last of them.
    void holdWrites() { m_areWritesHeld = true; }
    void showWrites();

    /// Offers what was written at that change count as the PRIMARY selection too, for programs that paste only that.
    /// Calls back when it is there. `giveBackPrimary` offers again what was there before.
    void borrowPrimary(int changeCount, std::function<void()> done);
    void giveBackPrimary() { m_primary.giveBack(); }

Q_SIGNALS:
    /// What `standingOf` tells may have changed.
    void ownershipChanged();

    /// The program of that window has got the clipboard's content, or PRIMARY's, from us.
    void served(xcb_window_t requestor);

private:
    using SelectionContent = freedesktop::selection::SelectionContent;
    using CopyReader = freedesktop::selection::CopyReader;
    using Source = freedesktop::selection::ContentSource;

    /// Who owns the clipboard, if it is not this program, or did so last.
    struct Owner {
        xcb_window_t window = XCB_WINDOW_NONE;
        std::optional<std::uint32_t> process;
    };

    void handleOwnerChange(const xcb_generic_event_t& event);
    void handleManagerChange(xcb_window_t owner);
    void readInitialContent();
    void startReading(xcb_window_t owner, xcb_timestamp_t time, bool countsAsChange);
    void handleReading(const CopyReader::Outcome& outcome, bool countsAsChange);
    void handleMore(const CopyReader::Arrived& more);
    void stopReading();
    void handleContent(const SelectionContent& content, bool countsAsChange);
    void countAgain();
    void write(const SelectionContent& content);
    void put(const SelectionContent& content);
    void acquire();
    void handleLoss(freedesktop::selection::OwnerLoss loss);
    void takeOver();
    bool isFormerOwnerRunning() const;
    void becomeManager();
    void saveTargets(std::function<void(bool)> done);
    void answerSavers();
    void handOver();

    Connection& m_connection;
    AtomNames m_names;
    Clients m_clients;
    IncomingTransfers m_incoming;
    OutgoingTransfers m_outgoing;
    SelectionServer m_clipboard;
    PrimaryLoan m_primary;
    SelectionServer m_manager;
    ClipboardHandOver m_handOver;
    std::uint8_t m_xfixesEvent = 0;

    int m_changeCount = 0;
    SelectionContent m_content;
    Source m_source = Source::Nothing;
    bool m_isAcquiring = false;
    std::optional<SelectionContent> m_toAcquire;
    OwnWrites m_writes;
    int m_offered = 0;               // the change count of the write that others see
    bool m_isOfferedByOther = false; // who has taken it from us
    bool m_areWritesHeld = false;
    bool m_isTakingOver = false;
    QElapsedTimer m_sinceOffer;
    QElapsedTimer m_sinceCounted;
    QTimer m_countAgain;
    std::unique_ptr<SelectionReader> m_reader;       // of the content
    std::unique_ptr<SelectionReader> m_readerOfMore; // which has come, of what is only to be served on
    Owner m_owner;
    freedesktop::selection::TakeOver m_takeOver;
    QTimer m_takeOverDelay;
    QElapsedTimer m_sinceLoss;
    std::vector<std::function<void(bool)>> m_savers;
};

} // namespace zamber::x11
