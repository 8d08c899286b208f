// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/SelectionPasteboard.h"
#include "platform/x11/AtomNames.h"
#include "platform/x11/ClipboardHandOver.h"
#include "platform/x11/IncomingTransfer.h"
#include "platform/x11/OutgoingTransfers.h"
#include "platform/x11/OwnerProcess.h"
#include "platform/x11/PrimaryLoan.h"
#include "platform/x11/SelectionReader.h"
#include "platform/x11/SelectionServer.h"

#include <functional>
#include <optional>
#include <vector>

namespace zamber::x11 {

/// The CLIPBOARD selection as a pasteboard.
///
/// It is the clipboard manager of the session, too, where there is none: programs that quit hand it what they hold
/// (CLIPBOARD_MANAGER and SAVE_TARGETS, freedesktop.org's clipboard manager protocol). Where there is one, what this
/// program serves is handed to it at the end.
class X11Pasteboard final : public freedesktop::selection::SelectionPasteboard {
    Q_OBJECT

public:
    explicit X11Pasteboard(Connection& connection);
    ~X11Pasteboard() override;

    void borrowPrimary(int changeCount, std::function<void()> done) override;
    void giveBackPrimary() override { m_primary.giveBack(); }

private:
    using SelectionContent = freedesktop::selection::SelectionContent;
    using CopyReader = freedesktop::selection::CopyReader;

    void publish(const SelectionContent& content) override;
    bool isPublishing() const override { return m_isAcquiring; }
    bool isOwner() const override { return m_clipboard.isOwner(); }
    bool hasOwner() const override;
    bool isFormerOwnerRunning() const override;
    void handleSettled() override;

    void acquire();
    void handleOwnerChange(const xcb_generic_event_t& event);
    void handleManagerChange(xcb_window_t owner);
    void readInitialContent();
    void readFrom(xcb_window_t owner, xcb_timestamp_t time, Counts counts);
    void becomeManager();
    void saveTargets(std::function<void(bool)> done);
    void handOver();

    Connection& m_connection;
    AtomNames m_names;
    OwnerProcess m_owner; ///< that of the clipboard now, if it is not this program, or the last one
    IncomingTransfers m_incoming;
    OutgoingTransfers m_outgoing;
    SelectionServer m_clipboard;
    PrimaryLoan m_primary;
    SelectionServer m_manager;
    ClipboardHandOver m_handOver;
    std::uint8_t m_xfixesEvent = 0;
    bool m_isAcquiring = false;
    std::optional<SelectionContent> m_toAcquire;
    std::vector<std::function<void(bool)>> m_savers;
};

} // namespace zamber::x11
