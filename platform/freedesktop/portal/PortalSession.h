// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/portal/PortalRequest.h"

#include <QDBusObjectPath>

#include <memory>

namespace zamber::freedesktop::portal {

/// What a portal does for this program from the time that it is asked until one side ends it
/// (`org.freedesktop.portal.Session`). Ended when it is destroyed.
class PortalSession final : public QObject {
    Q_OBJECT

public:
    /// Begins a session of that interface. Calls back once with whether there is one; the session may be destroyed in
    /// that. The portals outlive the session.
    PortalSession(Portals& portals, const QString& interface, std::function<void(bool isBegun)> done);
    ~PortalSession() override;

    QDBusObjectPath path() const { return QDBusObjectPath(m_path); }

    /// To be called where the portals have gone, and the session with them: nothing is sent at its end.
    void forget() { m_isOver = true; }

Q_SIGNALS:
    /// The portal has ended it.
    void closed();

private Q_SLOTS:
    void handleClosed();

private:
    Portals& m_portals;
    QString m_path;
    bool m_isOver = false;
    std::unique_ptr<PortalRequest> m_request;
};

} // namespace zamber::freedesktop::portal
