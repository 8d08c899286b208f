// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "HistoryRowAccessible.h"

#include "popover/HistoryListWidget.h"

#include <algorithm>

namespace zamber {

using namespace Qt::StringLiterals;

HistoryRowAccessible::HistoryRowAccessible(HistoryListWidget* list, const QUuid& item, std::optional<RowPart> part)
    : m_list(list)
    , m_item(item)
    , m_part(part) {}

HistoryRowAccessible::~HistoryRowAccessible() {
    for (const QAccessible::Id id : m_parts) {
        if (id != 0) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
}

std::optional<int> HistoryRowAccessible::row() const {
    if (m_list == nullptr) {
        return std::nullopt;
    }
    const auto& items = m_list->items();
    const auto found = std::ranges::find(items, m_item, &ClipboardItem::id);
    return found == items.end() ? std::nullopt : std::optional(static_cast<int>(found - items.begin()));
}

bool HistoryRowAccessible::isValid() const {
    return row().has_value();
}

QAccessibleInterface* HistoryRowAccessible::parent() const {
    QAccessibleInterface* list = m_list == nullptr ? nullptr : QAccessible::queryAccessibleInterface(m_list);
    const auto index = row();
    return m_part && list != nullptr && index ? list->child(*index) : list;
}

QList<RowPart> HistoryRowAccessible::shownParts() const {
    const auto index = row();
    if (m_part || !index || !m_list->isHovered(*index)) {
        return {};
    }
    if (m_list->isExpanded(*index)) {
        return {RowPart::Text, RowPart::Pin, RowPart::Delete};
    }
    return {RowPart::Pin, RowPart::Delete};
}

QAccessibleInterface* HistoryRowAccessible::part(RowPart part) const {
    QAccessible::Id& id = m_parts[static_cast<std::size_t>(part)];
    if (id == 0) {
        id = QAccessible::registerAccessibleInterface(new HistoryRowAccessible(m_list, m_item, part));
    }
    return QAccessible::accessibleInterface(id);
}

int HistoryRowAccessible::childCount() const {
    return static_cast<int>(shownParts().size());
}

QAccessibleInterface* HistoryRowAccessible::child(int index) const {
    const auto parts = shownParts();
    return index >= 0 && index < parts.size() ? part(parts[index]) : nullptr;
}

int HistoryRowAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const HistoryRowAccessible*>(child);
    return row == nullptr || !row->m_part ? -1 : static_cast<int>(shownParts().indexOf(*row->m_part));
}

QAccessibleInterface* HistoryRowAccessible::childAt(int x, int y) const {
    for (const RowPart shown : shownParts()) {
        if (part(shown)->rect().contains(x, y)) {
            return part(shown);
        }
    }
    return nullptr;
}

QString HistoryRowAccessible::text(QAccessible::Text kind) const {
    const auto index = row();
    if (!index) {
        return {};
    }
    const ClipboardItem& item = m_list->items()[*index];
    if (kind != QAccessible::Name) {
        return {};
    }
    if (!m_part) {
        return item.content.preview();
    }
    switch (*m_part) {
    case RowPart::Text:
        return QString::fromUtf8(item.content.bytes());
    case RowPart::Pin:
        return item.isPinned ? u"Unpin"_s : u"Pin"_s;
    case RowPart::Delete:
        return u"Delete"_s;
    }
    return {};
}

QRect HistoryRowAccessible::rect() const {
    const auto index = row();
    if (!index) {
        return {};
    }
    QRect area = m_list->rowRectangle(*index);
    if (m_part == RowPart::Text) {
        area = m_list->expandedTextRectangle(*index);
    } else if (m_part) {
        area = m_list->actionRectangle(*index, *m_part == RowPart::Pin ? RowAction::Pin : RowAction::Delete);
    }
    return area.translated(m_list->mapToGlobal(QPoint(0, 0)));
}

QAccessible::Role HistoryRowAccessible::role() const {
    if (!m_part) {
        return QAccessible::ListItem;
    }
    return *m_part == RowPart::Text ? QAccessible::StaticText : QAccessible::Button;
}

QAccessible::State HistoryRowAccessible::state() const {
    QAccessible::State state;
    const auto index = row();
    if (!index) {
        state.invalid = true;
        return state;
    }
    state.invisible = !m_list->isVisible();
    state.offscreen = !m_list->rect().intersects(m_list->rowRectangle(*index));
    if (!m_part) {
        state.selectable = true;
        state.focusable = true;
        state.selected = *index == m_list->selectedIndex();
        state.active = state.selected;
        state.expandable = m_list->isExpanded(*index);
        state.expanded = m_list->isExpanded(*index);
    }
    return state;
}

void* HistoryRowAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface && m_part != RowPart::Text) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    return nullptr;
}

QStringList HistoryRowAccessible::actionNames() const {
    return {pressAction()};
}

void HistoryRowAccessible::doAction(const QString& name) {
    const auto index = row();
    if (name != pressAction() || !index) {
        return;
    }
    if (!m_part) {
        m_list->choose(*index);
    } else {
        m_list->perform(*index, *m_part == RowPart::Pin ? RowAction::Pin : RowAction::Delete);
    }
}

} // namespace zamber
