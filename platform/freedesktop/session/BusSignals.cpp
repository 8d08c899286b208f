// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/BusSignals.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QtGlobal>

namespace zamber::freedesktop::session {

bool subscribe(QDBusConnection bus, const BusSignal& busSignal, QObject* receiver, const char* slot) {
    if (!bus.isConnected()) {
        return false;
    }
    // Qt looks the types of a slot's parameters up by their names, which it learns with the first message at the
    // earliest.
    qRegisterMetaType<QDBusMessage>();
    qRegisterMetaType<QDBusVariant>();
    const bool isSubscribed =
        bus.connect(busSignal.service, busSignal.path, busSignal.interface, busSignal.name, receiver, slot);
    if (!isSubscribed) {
        qWarning("%s.%s on the message bus is not followed", qUtf8Printable(busSignal.interface),
                 qUtf8Printable(busSignal.name));
    }
    return isSubscribed;
}

} // namespace zamber::freedesktop::session
