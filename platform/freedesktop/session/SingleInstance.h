// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace zamber::freedesktop::session {

/// One running program a session, by its name on the session bus. The one that runs answers
/// `org.freedesktop.Application` (freedesktop.org's D-Bus activation), which is how another start asks for it.
///
/// Without a session bus every start is the only one.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Start {
        OnlyOne,    ///< this is the program from now on
        OtherShown, ///< another one runs, and has shown itself
        OtherHangs, ///< another one runs, and does not answer
    };

    explicit SingleInstance(const QString& applicationId, const QDBusConnection& bus = QDBusConnection::sessionBus());

    /// Takes the application id as a name on the bus, or asks the process that has it to show itself. When that one
    /// ends meanwhile, this process takes the name.
    Start start();

signals:
    /// Another start, or the desktop, has asked for this program. The token, which may be empty, lets its window come
    /// to the front on Wayland.
    void showRequested(const QString& activationToken);

private:
    bool takeName();
    bool askOtherToShow() const;

    QString m_applicationId;
    QString m_path;
    QDBusConnection m_bus;
};

/// The part of the bus interface that a program without documents needs.
class ApplicationInterface final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationInterface(SingleInstance* instance)
        : QDBusAbstractAdaptor(instance)
        , m_instance(instance) {}

public slots:
    // NOLINTBEGIN(readability-identifier-naming): the names are the interface's
    void Activate(const QVariantMap& platformData) { requestShow(platformData); }
    void Open(const QStringList& /*addresses*/, const QVariantMap& platformData) { requestShow(platformData); }
    void ActivateAction(const QString& /*action*/, const QVariantList& /*parameter*/,
                        const QVariantMap& /*platformData*/) {}
    // NOLINTEND(readability-identifier-naming)

private:
    void requestShow(const QVariantMap& platformData);

    SingleInstance* m_instance;
};

} // namespace zamber::freedesktop::session
