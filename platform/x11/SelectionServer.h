// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/SelectionOffer.h"
#include "platform/x11/AtomNames.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zamber::x11 {

class OutgoingTransfers;

/// Owns one selection and answers the programs that ask for it, each request on its own (ICCCM, section 2.2).
class SelectionServer final : public QObject {
    Q_OBJECT

public:
    using SelectionContent = freedesktop::selection::SelectionContent;

    SelectionServer(Connection& connection, AtomNames& names, OutgoingTransfers& transfers, xcb_atom_t selection);
    ~SelectionServer() override;

    /// Becomes the owner, with the time of the event that led to it (or of the server's clock). False when another
    /// program became the owner after that time.
    bool acquire(const SelectionContent& content, xcb_timestamp_t time);

    /// Leaves the selection without an owner, if this is the owner.
    void release(xcb_timestamp_t time);

    bool isOwner() const { return m_acquiredAt.has_value(); }
    xcb_window_t window() const { return m_window; }
    std::vector<QByteArray> typesToSave() const { return m_offer.typesToSave(); }

    /// Answers a target that asks for an action instead of the content: calls back with true when it is done.
    using SideEffect = std::function<void(xcb_atom_t target, std::function<void(bool)> done)>;
    void setSideEffect(xcb_atom_t target, SideEffect effect);

Q_SIGNALS:
    /// Another program has become the owner.
    void lost();

    /// The program that the window belongs to has been sent the content, or its beginning; the rest goes from a copy.
    void served(xcb_window_t requestor);

private:
    struct Request;

    void handleEvent(const xcb_generic_event_t& event);
    void handleRequest(const xcb_selection_request_event_t& event);
    bool isOwnerOnServer() const;
    void handleMultiple(const std::shared_ptr<Request>& request);
    void convert(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t target, const std::function<void(bool)>& done);
    void sendTargets(xcb_window_t requestor, xcb_atom_t property);
    std::vector<xcb_atom_t> targets() const;
    void notify(const xcb_selection_request_event_t& request, bool succeeded);

    Connection& m_connection;
    AtomNames& m_names;
    OutgoingTransfers& m_transfers;
    xcb_atom_t m_selection;
    xcb_window_t m_window;
    freedesktop::selection::SelectionOffer m_offer;
    std::optional<xcb_timestamp_t> m_acquiredAt;
    xcb_atom_t m_sideEffectTarget = XCB_ATOM_NONE;
    SideEffect m_sideEffect;
};

} // namespace zamber::x11
