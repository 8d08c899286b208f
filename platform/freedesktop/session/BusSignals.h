// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QDBusConnection;
class QObject;

namespace zamber::freedesktop::session {

/// A signal that a service sends over a message bus.
struct BusSignal {
    QString service;
    QString path;
    QString interface;
    QString name;
};

/// Calls the slot (`SLOT(…)`) whenever the signal comes, from now on. A slot that takes a `QDBusMessage` gets signals
/// with arguments of any kind. Where the bus is there but Qt refuses the subscription, which it does silently, a line
/// on standard error names the signal, which would be awaited for ever. Returns whether the slot will be
/// called.
bool subscribe(QDBusConnection bus, const BusSignal& busSignal, QObject* receiver, const char* slot);

} // namespace zamber::freedesktop::session
