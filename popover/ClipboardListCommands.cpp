// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// What the list view does by a menu, or by keys that are no arrows.
#include "clipboard/ClipboardManager.h"
#include "popover/ClipboardListView.h"
#include "popover/HistoryListWidget.h"
#include "popover/PopoverCommands.h"
#include "popover/RowMenu.h"
#include "ui/ConfirmationSheet.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <algorithm>

namespace zamber::popover {

namespace {
/// Where a menu that is asked for by a key begins, from the left end of the row's lower edge.
constexpr QPoint MENU_OFFSET{30, -6};
} // namespace

bool ClipboardListView::hasSelectedRow() const {
    return m_selectedIndex < m_list->items().size();
}

bool ClipboardListView::canClear() const {
    return std::ranges::any_of(m_manager->items(), [](const clipboard::ClipboardItem& item) { return !item.isPinned; });
}

bool ClipboardListView::eventFilter(QObject* watched, QEvent* event) {
    // The search field takes a letter with ⌘ for the letter alone, and the menu key for a wish for its own menu.
    if (event->type() == QEvent::KeyPress) {
        const auto& press = *static_cast<QKeyEvent*>(event);
        return press.modifiers().testFlag(Qt::MetaModifier) && !press.text().isEmpty() &&
               press.text().front().isPrint() && performCommandOf(press);
    }
    if (event->type() == QEvent::ContextMenu &&
        static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
        event->ignore(); // and so it comes here
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void ClipboardListView::keyPressEvent(QKeyEvent* event) {
    if (!performCommandOf(*event)) {
        QWidget::keyPressEvent(event);
    }
}

void ClipboardListView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        perform(PopoverCommand::ShowMenu);
    }
}

bool ClipboardListView::performCommandOf(const QKeyEvent& press) {
    const auto command = commandOf(press);
    if (command && !press.isAutoRepeat()) { // a key that is held does not delete one row after the other
        perform(*command);
    }
    return command.has_value();
}

void ClipboardListView::perform(PopoverCommand command) {
    if (m_clearConfirmation->isVisible()) {
        return; // what is asked comes first
    }
    switch (command) {
    case PopoverCommand::ShowMenu:
        showSelectedRowMenu();
        break;
    case PopoverCommand::Pin:
        if (hasSelectedRow()) {
            m_list->perform(m_selectedIndex, RowAction::Pin);
        }
        break;
    case PopoverCommand::Delete:
        if (hasSelectedRow()) {
            m_list->perform(m_selectedIndex, RowAction::Delete);
        }
        break;
    case PopoverCommand::OpenLink:
        if (hasSelectedRow()) {
            m_list->perform(m_selectedIndex, RowAction::OpenLink);
        }
        break;
    case PopoverCommand::Clear:
        if (canClear()) {
            showClearConfirmation();
        }
        break;
    case PopoverCommand::Update:
        m_banner->download();
        break;
    case PopoverCommand::SkipUpdate:
        m_banner->skip();
        break;
    case PopoverCommand::OpenSettings:
        if (m_services.openSettings) {
            m_services.openSettings();
        }
        break;
    }
}

void ClipboardListView::showSelectedRowMenu() {
    if (!hasSelectedRow()) {
        return;
    }
    QRect row = m_list->rowRectangle(m_selectedIndex);
    if (row.bottom() < 0 || row.top() >= m_list->height()) {
        m_list->showSelection();
        row = m_list->rowRectangle(m_selectedIndex);
    }
    showRowMenu(m_selectedIndex, m_list->mapToGlobal(row.intersected(m_list->rect()).bottomLeft() + MENU_OFFSET));
    if (m_rowMenu) {
        m_rowMenu->setActiveAction(m_rowMenu->actions().first());
    }
}

void ClipboardListView::showRowMenu(int row, QPoint screenPosition) {
    const clipboard::ClipboardItem item = m_list->items()[row]; // the list may change while the menu is open
    RowMenuActions actions{.copy = [this, item] { choose(item); },
                           .openLink = {},
                           .togglePin = [this, item] { m_manager->togglePin(item); },
                           .remove = [this, item] { m_manager->deleteItem(item); }};
    if (const auto address = m_list->link(row)) {
        actions.openLink = [this, address] { openAddress(*address); };
    }
    const QList<MenuItem> lines = rowMenuLines(item.isPinned, actions);
    if (m_services.showMenu && m_services.showMenu(lines, screenPosition)) {
        return;
    }
    m_rowMenu = new RowMenu(lines, this);
    m_rowMenu->setAttribute(Qt::WA_DeleteOnClose);
    m_rowMenu->popup(screenPosition);
}

} // namespace zamber::popover
