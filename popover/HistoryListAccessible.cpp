// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/HistoryListAccessible.h"

#include "popover/HistoryListWidget.h"
#include "popover/HistoryRowAccessible.h"

#include <QSet>

namespace zamber::popover {

namespace {

QAccessibleInterface* createForHistoryList(const QString&, QObject* object) {
    auto* list = qobject_cast<HistoryListWidget*>(object);
    return list == nullptr ? nullptr : new HistoryListAccessible(list);
}

} // namespace

HistoryListAccessible::HistoryListAccessible(HistoryListWidget* list)
    : QAccessibleWidget(list, QAccessible::List) {}

HistoryListAccessible::~HistoryListAccessible() {
    for (const QAccessible::Id id : std::as_const(m_rows)) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

void HistoryListAccessible::install() {
    QAccessible::installFactory(createForHistoryList); // installing it again changes nothing
}

void HistoryListAccessible::announceSelection(HistoryListWidget* list, int row) {
    if (!QAccessible::isActive()) {
        return;
    }
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(list);
    QAccessibleInterface* item = interface == nullptr ? nullptr : interface->child(row);
    if (item == nullptr) {
        return;
    }
    QAccessibleEvent selected(item, QAccessible::Selection);
    QAccessible::updateAccessibility(&selected);
    // The keyboard focus stays in the search field, so readers would say nothing. They are told that the row has it.
    QAccessibleEvent focused(item, QAccessible::Focus);
    QAccessible::updateAccessibility(&focused);
}

void HistoryListAccessible::announceFocus(QWidget& focused) {
    QAccessibleEvent event(&focused, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

const HistoryListWidget* HistoryListAccessible::list() const {
    return static_cast<const HistoryListWidget*>(object());
}

int HistoryListAccessible::childCount() const {
    return static_cast<int>(list()->items().size());
}

QAccessibleInterface* HistoryListAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    forgetRowsThatAreGone();
    const QUuid& id = list()->items()[index].id;
    auto known = m_rows.find(id);
    if (known == m_rows.end()) {
        auto* row = new HistoryRowAccessible(static_cast<HistoryListWidget*>(object()), id, std::nullopt);
        known = m_rows.insert(id, QAccessible::registerAccessibleInterface(row));
    }
    return QAccessible::accessibleInterface(*known);
}

int HistoryListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const HistoryRowAccessible*>(child);
    if (row != nullptr) {
        for (int index = 0; index < childCount(); ++index) {
            if (list()->items()[index].id == row->itemId()) {
                return index;
            }
        }
    }
    return -1;
}

QAccessibleInterface* HistoryListAccessible::childAt(int x, int y) const {
    for (int index = 0; index < childCount(); ++index) {
        if (list()->rowRectangle(index).contains(list()->mapFromGlobal(QPoint(x, y)))) {
            return child(index);
        }
    }
    return nullptr;
}

void HistoryListAccessible::forgetRowsThatAreGone() const {
    if (m_rows.size() <= childCount()) {
        return;
    }
    QSet<QUuid> listed;
    for (const clipboard::ClipboardItem& item : list()->items()) {
        listed.insert(item.id);
    }
    m_rows.removeIf([&listed](const auto& row) {
        const bool isGone = !listed.contains(row.key());
        if (isGone) {
            QAccessible::deleteAccessibleInterface(row.value());
        }
        return isGone;
    });
}

} // namespace zamber::popover
