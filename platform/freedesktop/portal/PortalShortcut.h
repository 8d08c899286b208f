// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <QDBusArgument>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace zamber::freedesktop::portal {

/// A shortcut as the portal for global shortcuts is asked for it and tells of it. Both types, this one and its list,
/// are to be registered with Qt before they are sent.
struct PortalShortcut {
    QString name;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

/// The name under which the desktop keeps what the user has chosen for a hot key.
QString shortcutNameOf(PhysicalKey key);

/// What the portal is asked for: the name, the description that its dialog shows, and the keys.
PortalShortcut shortcutOf(PhysicalKey key, HotKeyModifiers modifiers);

} // namespace zamber::freedesktop::portal

Q_DECLARE_METATYPE(zamber::freedesktop::portal::PortalShortcut)
