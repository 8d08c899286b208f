// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/HistoryRowAccessible.h"

#include "popover/HistoryListWidget.h"

#include <algorithm>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

/// More than any screen reader reads out. A message on the bus must not exceed its limit, which ends the connection.
constexpr qsizetype MOST_EXPOSED_BYTES = 4'000'000;

RowPart partOf(RowAction action) {
    switch (action) {
    case RowAction::OpenLink:
        return RowPart::OpenLink;
    case RowAction::Pin:
        return RowPart::Pin;
    case RowAction::Delete:
        break;
    }
    return RowPart::Delete;
}

RowAction actionOf(RowPart part) {
    return part == RowPart::OpenLink ? RowAction::OpenLink : part == RowPart::Pin ? RowAction::Pin : RowAction::Delete;
}

QString actionName(RowAction action, const clipboard::ClipboardItem& item) {
    switch (action) {
    case RowAction::OpenLink:
        return u"Open Link"_s;
    case RowAction::Pin:
        return item.isPinned ? u"Unpin"_s : u"Pin"_s;
    case RowAction::Delete:
        break;
    }
    return u"Delete"_s;
}

} // namespace

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
    const auto found = std::ranges::find(items, m_item, &clipboard::ClipboardItem::id);
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

QList<RowPart> HistoryRowAccessible::parts() const {
    const auto index = row();
    if (m_part || !index) {
        return {};
    }
    // The text is there while it is on the screen. The buttons always are, for users who cannot point at a row.
    QList<RowPart> parts;
    if (m_list->isExpanded(*index)) {
        parts.append(RowPart::Text);
    }
    for (const RowAction action : m_list->actions(*index)) {
        parts.append(partOf(action));
    }
    return parts;
}

QAccessibleInterface* HistoryRowAccessible::part(RowPart part) const {
    QAccessible::Id& id = m_parts[static_cast<std::size_t>(part)];
    if (id == 0) {
        id = QAccessible::registerAccessibleInterface(new HistoryRowAccessible(m_list, m_item, part));
    }
    return QAccessible::accessibleInterface(id);
}

int HistoryRowAccessible::childCount() const {
    return static_cast<int>(parts().size());
}

QAccessibleInterface* HistoryRowAccessible::child(int index) const {
    const QList<RowPart> all = parts();
    return index >= 0 && index < all.size() ? part(all[index]) : nullptr;
}

int HistoryRowAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const HistoryRowAccessible*>(child);
    return row == nullptr || !row->m_part ? -1 : static_cast<int>(parts().indexOf(*row->m_part));
}

QAccessibleInterface* HistoryRowAccessible::childAt(int x, int y) const {
    for (const RowPart shown : parts()) {
        if (part(shown)->rect().contains(x, y)) {
            return part(shown);
        }
    }
    return nullptr;
}

QString HistoryRowAccessible::text(QAccessible::Text kind) const {
    const auto index = row();
    if (index && kind == QAccessible::Name) {
        return name(*index);
    }
    return index && kind == QAccessible::Description && !m_part ? description(*index) : QString();
}

QString HistoryRowAccessible::name(int row) const {
    const clipboard::ClipboardItem& item = m_list->items()[row];
    if (!m_part) {
        return m_list->preview(row);
    }
    return m_part == RowPart::Text ? QString::fromUtf8(item.content.bytes().first(
                                         std::min(item.content.bytes().size(), MOST_EXPOSED_BYTES)))
                                   : actionName(actionOf(*m_part), item);
}

QString HistoryRowAccessible::description(int row) const {
    // The symbols, the counts and the age in words.
    QStringList facts = m_list->describe(row);
    if (m_list->items()[row].isPinned) {
        facts.prepend(u"pinned"_s);
    } else if (row > 0 && m_list->items()[row - 1].isPinned) {
        facts.prepend(u"recent"_s); // the section begins, which its header says to the eye
    }
    return facts.join(u", "_s);
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
        area = m_list->actionRectangle(*index, actionOf(*m_part));
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
    const bool isHiddenButton = m_part && !m_list->isHovered(*index);
    state.invisible = !m_list->isVisible() || isHiddenButton;
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
    QStringList names{pressAction()};
    const auto index = row();
    if (!m_part && index) {
        names.append(setFocusAction());
        names.append(showMenuAction());
        for (const RowAction action : m_list->actions(*index)) {
            names.append(actionName(action, m_list->items()[*index]));
        }
    }
    return names;
}

void HistoryRowAccessible::doAction(const QString& wanted) {
    const auto index = row();
    if (!index) {
        return;
    }
    if (m_part) {
        if (wanted == pressAction()) {
            m_list->perform(*index, actionOf(*m_part));
        }
    } else if (wanted == pressAction()) {
        m_list->choose(*index);
    } else if (wanted == setFocusAction()) {
        emit m_list->selectRequested(*index);
    } else if (wanted == showMenuAction()) {
        emit m_list->menuRequested(*index, rect().center());
    } else {
        for (const RowAction action : m_list->actions(*index)) {
            if (wanted == actionName(action, m_list->items()[*index])) {
                m_list->perform(*index, action);
                return;
            }
        }
    }
}

} // namespace zamber::popover
