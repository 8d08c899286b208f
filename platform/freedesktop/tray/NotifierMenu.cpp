// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/NotifierMenu.h"

#include <QDBusMetaType>

#include <algorithm>
#include <utility>

namespace zamber::freedesktop::tray {

using namespace Qt::StringLiterals;

namespace {

constexpr int ROOT = 0;

bool haveSameLook(const QList<MenuItem>& a, const QList<MenuItem>& b) {
    return std::ranges::equal(a, b, [](const MenuItem& left, const MenuItem& right) {
        return left.title == right.title && left.keyEquivalent == right.keyEquivalent;
    });
}

/// The name of a key, as the protocol has it: X's.
QString keyName(const QString& key) {
    return key == u"," ? u"comma"_s : key;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierMenuNode& node) {
    argument.beginStructure();
    argument << node.id << node.properties;
    argument.beginArray(qMetaTypeId<QDBusVariant>());
    for (const NotifierMenuNode& child : node.children) {
        argument << QDBusVariant(QVariant::fromValue(child));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierMenuNode& node) {
    argument.beginStructure();
    argument >> node.id >> node.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        node.children << qdbus_cast<NotifierMenuNode>(child.variant());
    }
    argument.endArray();
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): the shape is Qt's
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierMenuEntry& entry) {
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierMenuEntry& entry) {
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): the shape is Qt's
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierMenuEvent& event) {
    argument.beginStructure();
    argument << event.id << event.type << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierMenuEvent& event) {
    argument.beginStructure();
    argument >> event.id >> event.type >> event.data >> event.timestamp;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): the shape is Qt's
}

NotifierMenu::NotifierMenu(QObject* object, std::function<void()> wanted)
    : QDBusAbstractAdaptor(object)
    , m_wanted(std::move(wanted)) {
    qDBusRegisterMetaType<NotifierMenuNode>();
    qDBusRegisterMetaType<NotifierMenuEntry>();
    qDBusRegisterMetaType<QList<NotifierMenuEntry>>();
    qDBusRegisterMetaType<NotifierMenuEvent>();
    qDBusRegisterMetaType<QList<NotifierMenuEvent>>();
    qDBusRegisterMetaType<QList<QStringList>>();
}

void NotifierMenu::setItems(const QList<MenuItem>& items) {
    const bool isNew = !haveSameLook(items, m_items);
    m_items = items;
    if (isNew) {
        emit LayoutUpdated(++m_revision, ROOT);
    }
}

uint NotifierMenu::GetLayout(int parentId, int recursionDepth, const QStringList& /*propertyNames*/,
                             NotifierMenuNode& layout) {
    if (parentId == ROOT) {
        m_wanted();
    }
    layout = {.id = parentId, .properties = propertiesOf(parentId), .children = {}};
    if (parentId == ROOT && recursionDepth != 0) {
        for (int id = 1; id <= m_items.size(); ++id) {
            layout.children << NotifierMenuNode{.id = id, .properties = propertiesOf(id), .children = {}};
        }
    }
    return m_revision;
}

QList<NotifierMenuEntry> NotifierMenu::GetGroupProperties(const QList<int>& ids,
                                                          const QStringList& /*propertyNames*/) const {
    QList<NotifierMenuEntry> entries;
    if (ids.isEmpty()) { // all of them
        for (int id = ROOT; id <= m_items.size(); ++id) {
            entries << NotifierMenuEntry{.id = id, .properties = propertiesOf(id)};
        }
    }
    for (const int id : ids) {
        entries << NotifierMenuEntry{.id = id, .properties = propertiesOf(id)};
    }
    return entries;
}

QDBusVariant NotifierMenu::GetProperty(int id, const QString& name) const {
    return QDBusVariant(propertiesOf(id).value(name, QString()));
}

void NotifierMenu::Event(int id, const QString& eventId, const QDBusVariant& /*data*/, uint /*timestamp*/) {
    if (eventId == u"clicked") {
        choose(id);
    }
}

QList<int> NotifierMenu::EventGroup(const QList<NotifierMenuEvent>& events) {
    for (const NotifierMenuEvent& event : events) {
        Event(event.id, event.type, event.data, event.timestamp);
    }
    return {};
}

bool NotifierMenu::AboutToShow(int id) {
    const uint before = m_revision;
    if (id == ROOT) {
        m_wanted();
    }
    return m_revision != before;
}

QList<int> NotifierMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    idErrors.clear();
    return ids.contains(ROOT) && AboutToShow(ROOT) ? QList{ROOT} : QList<int>();
}

QVariantMap NotifierMenu::propertiesOf(int id) const {
    if (id == ROOT) {
        return {{u"children-display"_s, u"submenu"_s}};
    }
    if (id < 1 || id > m_items.size()) {
        return {};
    }
    const MenuItem& item = m_items[id - 1];
    if (item.title.isEmpty()) {
        return {{u"type"_s, u"separator"_s}};
    }
    // A single underscore would mark the letter after it.
    QVariantMap properties{{u"label"_s, QString(item.title).replace(u"_"_s, u"__"_s)}};
    if (!item.keyEquivalent.isEmpty()) {
        const QStringList pressed{u"Super"_s, keyName(item.keyEquivalent)};
        properties[u"shortcut"_s] = QVariant::fromValue(QList<QStringList>(1, pressed));
    }
    return properties;
}

void NotifierMenu::choose(int id) {
    if (id < 1 || id > m_items.size() || !m_items[id - 1].action) {
        return;
    }
    // After the answer: the action may end the program.
    QMetaObject::invokeMethod(this, m_items[id - 1].action, Qt::QueuedConnection);
}

} // namespace zamber::freedesktop::tray
