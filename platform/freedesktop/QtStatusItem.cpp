// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtStatusItem.h"

#include "platform/Symbols.h"

#include <QCursor>
#include <QGuiApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include <array>
#include <utility>

namespace zamber {

namespace {

/// What trays ask for, in pixels.
constexpr std::array ICON_SIZES{16, 22, 24, 32, 48, 64};

/// A light glyph with a dark rim can be read on any panel: nothing tells its colour.
QPixmap trayPixmap(const Symbols& symbols, const QString& name, int size) {
    const auto glyph = [&](const QColor& color) {
        return symbols.pixmap(name, {.pointSize = size * 0.8, .weight = QFont::Medium, .color = color});
    };
    const QPixmap light = glyph(QColor(0xf4, 0xf4, 0xf6));
    const QPixmap dark = glyph(QColor(0, 0, 0, 70));
    QPixmap icon(size, size);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    const QPoint corner((size - light.width()) / 2, (size - light.height()) / 2);
    for (const QPoint offset : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
        painter.drawPixmap(corner + offset, dark);
    }
    painter.drawPixmap(corner, light);
    return icon;
}

QScreen* screenWithPointer() {
    QScreen* const screen = QGuiApplication::screenAt(QCursor::pos());
    return screen != nullptr ? screen : QGuiApplication::primaryScreen();
}

} // namespace

QtStatusItem::QtStatusItem(const Symbols& symbols)
    : m_symbols(symbols) {}

void QtStatusItem::showSymbol(const QString& symbol, const QString& accessibilityDescription) {
    QIcon icon;
    for (const int size : ICON_SIZES) {
        icon.addPixmap(trayPixmap(m_symbols, symbol, size));
    }
    m_menu = std::make_unique<QMenu>();
    m_icon = std::make_unique<QSystemTrayIcon>(icon);
    m_icon->setToolTip(accessibilityDescription);
    m_icon->setContextMenu(m_menu.get());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, &QtStatusItem::handleActivation);
    connect(m_menu.get(), &QMenu::aboutToShow, this, [this] {
        if (m_handler) {
            m_handler(MouseButton::Right);
        }
    });
    m_menu->installEventFilter(this);
    m_icon->show();
}

std::optional<Anchor> QtStatusItem::button() const {
    if (isInTray()) {
        return Anchor{.screenRectangle = m_icon->geometry()};
    }
    const QRect workArea = screenWithPointer()->availableGeometry();
    if (m_lastClick) {
        return Anchor{.screenRectangle = QRect(*m_lastClick, QSize(1, 1))};
    }
    return Anchor{.screenRectangle = QRect(workArea.topRight(), QSize(1, 1))};
}

void QtStatusItem::setClickedHandler(ClickedHandler handler) {
    m_handler = std::move(handler);
}

void QtStatusItem::showMenuOnce(const QList<MenuItem>& menu) {
    m_menu->clear();
    for (const MenuItem& item : menu) {
        if (item.title.isEmpty()) {
            m_menu->addSeparator();
            continue;
        }
        QAction* const action = m_menu->addAction(item.title);
        if (!item.keyEquivalent.isEmpty()) {
            action->setShortcut(QKeySequence(item.keyEquivalent));
        }
        connect(action, &QAction::triggered, this, [run = item.action] { run(); });
    }
}

bool QtStatusItem::eventFilter(QObject* watched, QEvent* event) {
    // A menu shows an action's shortcut but leaves it to the window that it hangs from, and there is none.
    if (watched == m_menu.get() && event->type() == QEvent::KeyPress) {
        const QKeySequence pressed(static_cast<QKeyEvent*>(event)->key());
        for (QAction* const action : m_menu->actions()) {
            if (!action->shortcut().isEmpty() && action->shortcut() == pressed) {
                m_menu->close();
                action->trigger();
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

void QtStatusItem::handleActivation(QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger) {
        // Qt drops the place that a bus host tells; the pointer is still there.
        m_lastClick = QCursor::pos();
        if (m_handler) {
            m_handler(MouseButton::Left);
        }
    }
}

} // namespace zamber
