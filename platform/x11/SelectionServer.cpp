// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SelectionServer.h"

#include "platform/x11/OutgoingTransfers.h"
#include "platform/x11/SelectionProperty.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zamber::x11 {

/// A request under way; MULTIPLE has a list of pairs and is answered when the last of them is.
struct SelectionServer::Request {
    xcb_selection_request_event_t event;
    std::vector<xcb_atom_t> pairs; // target, property, target, property, …
    std::size_t open = 0;
};

SelectionServer::SelectionServer(Connection& connection, AtomNames& names, OutgoingTransfers& transfers,
                                 xcb_atom_t selection)
    : m_connection(connection)
    , m_names(names)
    , m_transfers(transfers)
    , m_selection(selection)
    , m_window(connection.createWindow(XCB_EVENT_MASK_NO_EVENT)) {
    connection.addEventHandler([this](const xcb_generic_event_t& event) { handleEvent(event); });
}

SelectionServer::~SelectionServer() {
    xcb_destroy_window(m_connection.raw(), m_window);
}

bool SelectionServer::acquire(const SelectionContent& content, xcb_timestamp_t time) {
    xcb_set_selection_owner(m_connection.raw(), m_window, m_selection, time);
    if (!isOwnerOnServer()) {
        return false; // another program has taken it at a later time
    }
    m_offer.setContent(content);
    m_acquiredAt = time;
    return true;
}

void SelectionServer::release(xcb_timestamp_t time) {
    if (isOwnerOnServer()) {
        xcb_set_selection_owner(m_connection.raw(), XCB_WINDOW_NONE, m_selection, time);
    }
    m_acquiredAt.reset();
    m_offer.setContent({});
}

bool SelectionServer::isOwnerOnServer() const {
    return m_connection.selectionOwner(m_selection) == m_window;
}

void SelectionServer::setSideEffect(xcb_atom_t target, SideEffect effect) {
    m_sideEffectTarget = target;
    m_sideEffect = std::move(effect);
}

void SelectionServer::handleEvent(const xcb_generic_event_t& event) {
    switch (codeOf(event)) {
    case XCB_SELECTION_REQUEST:
        if (const auto& request = as<xcb_selection_request_event_t>(event); request.owner == m_window) {
            handleRequest(request);
        }
        break;
    case XCB_SELECTION_CLEAR:
        // A late message: the selection was lost, and has been taken again since.
        if (as<xcb_selection_clear_event_t>(event).owner == m_window && !isOwnerOnServer()) {
            m_acquiredAt.reset();
            m_offer.setContent({});
            Q_EMIT lost();
        }
        break;
    default:
        break;
    }
}

void SelectionServer::handleRequest(const xcb_selection_request_event_t& event) {
    auto request = std::make_shared<Request>(Request{.event = event, .pairs = {}, .open = 0});
    if (request->event.property == XCB_ATOM_NONE) {
        request->event.property = event.target; // an obsolete requestor (ICCCM, section 2.2)
    }
    const bool isOutOfDate =
        event.time != XCB_CURRENT_TIME && m_acquiredAt && static_cast<std::int32_t>(event.time - *m_acquiredAt) < 0;
    if (!m_acquiredAt || isOutOfDate) {
        notify(request->event, false);
        return;
    }
    if (event.target == m_connection.atom(Atom::Multiple)) {
        handleMultiple(request);
        return;
    }
    const bool isForContent =
        event.target != m_connection.atom(Atom::Targets) && event.target != m_connection.atom(Atom::Timestamp);
    convert(event.requestor, request->event.property, event.target, [this, request, isForContent](bool succeeded) {
        notify(request->event, succeeded);
        if (succeeded && isForContent) {
            Q_EMIT served(request->event.requestor);
        }
    });
}

void SelectionServer::handleMultiple(const std::shared_ptr<Request>& request) {
    auto pairs = numbersOf(
        m_connection.readProperty(request->event.requestor, request->event.property, Connection::Afterwards::Keep));
    if (request->event.property == m_connection.atom(Atom::Multiple) || pairs.size() < 2) {
        notify(request->event, false);
        return;
    }
    pairs.resize(pairs.size() / 2 * 2);
    request->pairs = std::move(pairs);
    request->open = request->pairs.size() / 2;
    for (std::size_t i = 0; i + 1 < request->pairs.size(); i += 2) {
        const auto answered = [this, request, i](bool succeeded) {
            if (!succeeded) {
                request->pairs[i] = XCB_ATOM_NONE;
            }
            if (--request->open > 0) {
                return;
            }
            xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, request->event.requestor,
                                request->event.property, m_connection.atom(Atom::AtomPair), 32,
                                static_cast<std::uint32_t>(request->pairs.size()), request->pairs.data());
            notify(request->event, true);
            Q_EMIT served(request->event.requestor);
        };
        if (request->pairs[i + 1] == XCB_ATOM_NONE || request->pairs[i] == m_connection.atom(Atom::Multiple)) {
            answered(false);
        } else {
            convert(request->event.requestor, request->pairs[i + 1], request->pairs[i], answered);
        }
    }
}

void SelectionServer::convert(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t target,
                              const std::function<void(bool)>& done) {
    if (target == m_connection.atom(Atom::Targets)) {
        sendTargets(requestor, property);
        done(true);
    } else if (target == m_connection.atom(Atom::Timestamp)) {
        const std::uint32_t time = *m_acquiredAt;
        xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_INTEGER, 32, 1,
                            &time);
        done(true);
    } else if (m_sideEffect && target == m_sideEffectTarget) {
        m_sideEffect(target, [this, requestor, property, done](bool succeeded) {
            if (succeeded) {
                m_transfers.send({.requestor = requestor, .property = property}, m_connection.atom(Atom::Null), {});
            }
            done(succeeded);
        });
    } else {
        m_offer.convert(m_names.nameOf(target), [this, requestor, property, done](const auto& data) {
            if (data) {
                m_transfers.send({.requestor = requestor, .property = property}, m_names.atomOf(data->type),
                                 data->bytes);
            }
            done(data.has_value());
        });
    }
}

void SelectionServer::sendTargets(xcb_window_t requestor, xcb_atom_t property) {
    const std::vector<xcb_atom_t> list = targets();
    xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(list.size()), list.data());
}

std::vector<xcb_atom_t> SelectionServer::targets() const {
    std::vector<xcb_atom_t> list{m_connection.atom(Atom::Targets), m_connection.atom(Atom::Timestamp),
                                 m_connection.atom(Atom::Multiple)};
    if (m_sideEffect) {
        list.push_back(m_sideEffectTarget);
    }
    std::ranges::copy(m_names.atomsOf(m_offer.types()), std::back_inserter(list));
    return list;
}

void SelectionServer::notify(const xcb_selection_request_event_t& request, bool succeeded) {
    // The protocol sends 32 bytes of every event, whatever its structure's size.
    union {
        xcb_selection_notify_event_t notify;
        std::array<char, 32> bytes;
    } event{.bytes = {}};
    event.notify.response_type = XCB_SELECTION_NOTIFY;
    event.notify.time = request.time;
    event.notify.requestor = request.requestor;
    event.notify.selection = request.selection;
    event.notify.target = request.target;
    event.notify.property = succeeded ? request.property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    xcb_send_event(m_connection.raw(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, event.bytes.data());
    m_connection.flush();
}

} // namespace zamber::x11
