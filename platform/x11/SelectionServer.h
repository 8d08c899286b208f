// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/ImageFormat.h"
#include "platform/x11/Connection.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace zamber::x11 {

class OutgoingTransfers;

/// What a selection of ours holds: a text, image bytes, or nothing.
struct SelectionContent {
    std::optional<QByteArray> text;  ///< UTF-8
    std::optional<QByteArray> image; ///< in whatever format they came
    freedesktop::selection::ImageFormat imageLabel =
        freedesktop::selection::ImageFormat::Tiff; ///< what the bytes are offered as, unchanged

    bool isEmpty() const { return !text && !image; }
};

/// Owns one selection and answers those who ask for it, each request on its own (ICCCM, section 2.2).
class SelectionServer final : public QObject {
    Q_OBJECT

public:
    SelectionServer(Connection& connection, OutgoingTransfers& transfers, xcb_atom_t selection);
    ~SelectionServer() override;

    /// Becomes the owner, with the time of the event that made us (or of the server's clock). False when somebody
    /// else became it later than that.
    bool acquire(const SelectionContent& content, xcb_timestamp_t time);

    bool isOwner() const { return m_acquiredAt.has_value(); }
    xcb_window_t window() const { return m_window; }

    /// A target with a meaning beyond conversion, answered by somebody else: true for done.
    using SideEffect = std::function<void(xcb_atom_t target, std::function<void(bool)> done)>;
    void setSideEffect(xcb_atom_t target, SideEffect effect);

Q_SIGNALS:
    /// Somebody else has become the owner.
    void lost();

private:
    struct Request;
    struct Conversion;

    void handleEvent(const xcb_generic_event_t& event);
    void handleRequest(const xcb_selection_request_event_t& event);
    bool isOwnerOnServer() const;
    void handleMultiple(const std::shared_ptr<Request>& request);
    void convert(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t target, const std::function<void(bool)>& done);
    bool convertText(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t target);
    bool convertImageTarget(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t target,
                            const std::function<void(bool)>& done);
    void convertImageOnce(freedesktop::selection::ImageFormat format, std::function<void(const QByteArray&)> done);
    void setContent(const SelectionContent& content);
    void sendTargets(xcb_window_t requestor, xcb_atom_t property);
    std::vector<xcb_atom_t> targets() const;
    void notify(const xcb_selection_request_event_t& request, bool succeeded);

    Connection& m_connection;
    OutgoingTransfers& m_transfers;
    xcb_atom_t m_selection;
    xcb_window_t m_window;
    SelectionContent m_content;
    std::optional<QByteArray> m_latin1; // the text, once it was asked for so
    std::map<freedesktop::selection::ImageFormat, std::shared_ptr<Conversion>>
        m_conversions; // of the content, under way
    std::optional<xcb_timestamp_t> m_acquiredAt;
    xcb_atom_t m_sideEffectTarget = XCB_ATOM_NONE;
    SideEffect m_sideEffect;
};

} // namespace zamber::x11
