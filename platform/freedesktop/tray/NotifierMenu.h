// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QObject>
#include <QVariantMap>

#include <functional>

namespace zamber::freedesktop::tray {

/// One line of a menu on the bus, or the menu itself with its lines.
struct NotifierMenuNode {
    int id = 0;
    QVariantMap properties;
    QList<NotifierMenuNode> children;
};

/// A line's number and properties, without the lines below it.
struct NotifierMenuEntry {
    int id = 0;
    QVariantMap properties;
};

/// Something that happened to a line.
struct NotifierMenuEvent {
    int id = 0;
    QString type;
    QDBusVariant data;
    uint timestamp = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierMenuNode& node);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierMenuNode& node);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierMenuEntry& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierMenuEntry& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierMenuEvent& event);

/// A menu that a host draws: it is asked for over the bus (`com.canonical.dbusmenu`, version 3). A line's number is
/// its place, from 1 on, so that it stays the same when the menu is made anew.
class NotifierMenu final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    /// `wanted` is called when the menu is about to be read or opened: the moment to make it.
    NotifierMenu(QObject* object, std::function<void()> wanted);

    void setItems(const QList<MenuItem>& items);

    static uint version() { return 3; }
    static QString textDirection() { return QStringLiteral("ltr"); }
    static QString status() { return QStringLiteral("normal"); }
    static QStringList iconThemePath() { return {}; }

public slots:
    // NOLINTBEGIN(readability-identifier-naming): the names are the interface's
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   zamber::freedesktop::tray::NotifierMenuNode& layout);
    QList<zamber::freedesktop::tray::NotifierMenuEntry> GetGroupProperties(const QList<int>& ids,
                                                                           const QStringList& propertyNames) const;
    QDBusVariant GetProperty(int id, const QString& name) const;
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<zamber::freedesktop::tray::NotifierMenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);
    // NOLINTEND(readability-identifier-naming)

signals:
    // NOLINTNEXTLINE(readability-identifier-naming)
    void LayoutUpdated(uint revision, int parent);

private:
    QVariantMap propertiesOf(int id) const;
    void choose(int id);

    std::function<void()> m_wanted;
    QList<MenuItem> m_items;
    uint m_revision = 1;
};

} // namespace zamber::freedesktop::tray

Q_DECLARE_METATYPE(zamber::freedesktop::tray::NotifierMenuNode)
Q_DECLARE_METATYPE(zamber::freedesktop::tray::NotifierMenuEntry)
Q_DECLARE_METATYPE(zamber::freedesktop::tray::NotifierMenuEvent)
