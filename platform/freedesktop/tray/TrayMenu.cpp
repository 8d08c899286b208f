// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/TrayMenu.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace zamber::freedesktop::tray {

using namespace Qt::StringLiterals;

TrayMenu::TrayMenu(QString commandKeyHint)
    : m_commandKeyHint(std::move(commandKeyHint)) {
    setToolTipsVisible(true);
}

void TrayMenu::setItems(const QList<MenuItem>& items) {
    clear();
    for (const MenuItem& item : items) {
        if (item.title.isEmpty()) {
            addSeparator();
            continue;
        }
        QAction* const action = addAction(item.title);
        if (!item.keyEquivalent.isEmpty()) {
            // Text after a tab stands in the shortcuts' column. A shortcut of Qt's own would be spelled "Meta+Q".
            action->setText(u"%1\t⌘%2"_s.arg(item.title, item.keyEquivalent.toUpper()));
            action->setToolTip(m_commandKeyHint);
            action->setData(QVariant::fromValue(QKeySequence(item.keyEquivalent)));
        }
        connect(action, &QAction::triggered, this, [run = item.action] { run(); });
    }
}

void TrayMenu::open(QPoint place) {
    hide(); // Qt takes the keyboard and the pointer for a menu when it comes, not when it moves
    m_hadFocus = false;
    popup(place);
    windowHandle()->installEventFilter(this);
}

void TrayMenu::keyPressEvent(QKeyEvent* event) {
    // With ⌘ or alone: the key has no other use while the menu is open.
    const QVariant pressed = QVariant::fromValue(QKeySequence(event->key()));
    const auto entries = actions();
    const auto chosen = std::ranges::find(entries, pressed, [](const QAction* action) { return action->data(); });
    if (chosen == entries.end()) {
        QMenu::keyPressEvent(event);
        return;
    }
    close();
    (*chosen)->trigger();
}

bool TrayMenu::eventFilter(QObject* watched, QEvent* event) {
    // Qt takes every popup away when the program ceases to be the active one, as it does a moment after the window in
    // front has gone. A tray icon's menu has nothing to do with that; as long as a user closes it, the program is
    // active. On Wayland the menu is a window like any other, which has the focus at first and closes when it loses it;
    // on X11 Qt says that it has the focus while it is the program's window in front that has it.
    if (watched == windowHandle() && event->type() == QEvent::FocusIn) {
        m_hadFocus = QGuiApplication::platformName() == QStringLiteral("wayland");
    }
    if (watched == windowHandle() && event->type() == QEvent::Close && !m_hadFocus &&
        QGuiApplication::applicationState() != Qt::ApplicationActive) {
        event->ignore();
        return true;
    }
    return QMenu::eventFilter(watched, event);
}

} // namespace zamber::freedesktop::tray
