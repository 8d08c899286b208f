// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/portal/Portals.h"

#include <QVariantList>
#include <QVariantMap>

namespace zamber::freedesktop::portal {

/// A question to a portal that is answered later, perhaps by the user in a dialog of the desktop's
/// (`org.freedesktop.portal.Request`). A request that goes before its answer takes the dialog with it.
class PortalRequest final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        Granted,
        Refused, ///< the user has closed the dialog
        Failed,  ///< the portal has no answer, or is not there
    };

    /// Called once, from the main loop. The request may be destroyed in it.
    using Done = std::function<void(Outcome outcome, const QVariantMap& results)>;

    /// A call of the portals, without the options that all requests have as their last argument.
    struct Call {
        QString interface;
        QString method;
        QVariantList arguments;
        QVariantMap options;
    };

    /// The portals outlive the request.
    PortalRequest(Portals& portals, Call call, Done done);
    ~PortalRequest() override;

    /// A new name for a request or a session, and the path that it leads to.
    static QString newToken();
    static QString pathOf(const Portals& portals, const QString& kind, const QString& token);

private Q_SLOTS:
    void handleResponse(const QDBusMessage& message);

private:
    void send(const Call& call);
    void finish(Outcome outcome, const QVariantMap& results);

    Portals& m_portals;
    QString m_token;
    QString m_path;
    Done m_done;
    bool m_isSent = false;
};

} // namespace zamber::freedesktop::portal
