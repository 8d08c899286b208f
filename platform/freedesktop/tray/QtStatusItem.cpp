// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/QtStatusItem.h"

#include "platform/Symbols.h"
#include "platform/freedesktop/tray/NotifierItem.h"
#include "platform/freedesktop/tray/NotifierMenu.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDBusConnection>
#include <QGuiApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <array>
#include <utility>

namespace zamber::freedesktop::tray {

using namespace Qt::StringLiterals;

namespace {

/// What trays ask for, in pixels.
constexpr std::array ICON_SIZES{16, 22, 24, 32, 48, 64};

const QString ITEM_PATH = u"/StatusNotifierItem"_s;
const QString MENU_PATH = u"/MenuBar"_s;

/// A light glyph with a dark rim can be read on any panel: nothing tells its colour.
QPixmap trayPixmap(const Symbols& symbols, const QString& name, int size) {
    const auto glyph = [&](const QColor& color) {
        return symbols.pixmap(name, {.pointSize = size * 0.8, .weight = QFont::Medium, .color = color});
    };
    const QPixmap light = glyph(QColor(0xf4, 0xf4, 0xf6));
    const QPixmap dark = glyph(QColor(0x1c, 0x1e, 0x22, 150));
    QPixmap icon(size, size);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    const QPoint corner((size - light.width()) / 2, (size - light.height()) / 2);
    const int rim = std::max(1, size / 24);
    for (const int x : {-rim, 0, rim}) {
        for (const int y : {-rim, 0, rim}) {
            painter.drawPixmap(corner + QPoint(x, y), dark);
        }
    }
    painter.drawPixmap(corner, light);
    return icon;
}

QScreen* screenWithPointer() {
    QScreen* const screen = QGuiApplication::screenAt(QCursor::pos());
    return screen != nullptr ? screen : QGuiApplication::primaryScreen();
}

} // namespace

QtStatusItem::QtStatusItem(const Symbols& symbols, HasClosedPopover hasClosedPopover)
    : m_symbols(symbols)
    , m_hasClosedPopover(std::move(hasClosedPopover))
    , m_hosts(QDBusConnection::sessionBus()) {
    QCoreApplication::instance()->installEventFilter(this);
    connect(&m_menu, &QMenu::aboutToShow, this, [this] { tell(MouseButton::Right); });
    connect(&m_hosts, &NotifierHosts::appeared, this, &QtStatusItem::useNotifierHost);
    connect(&m_hosts, &NotifierHosts::disappeared, this, &QtStatusItem::useTray);
}

QtStatusItem::~QtStatusItem() = default;

void QtStatusItem::showSymbol(const QString& symbol, const QString& accessibilityDescription) {
    m_description = accessibilityDescription;
    for (const int size : ICON_SIZES) {
        m_pictures << trayPixmap(m_symbols, symbol, size);
    }
    m_hosts.start();
}

void QtStatusItem::useNotifierHost() {
    m_icon.reset();
    exportItem();
    m_hosts.registerItem(m_busService);
}

void QtStatusItem::useTray() {
    // Only now that no host is there: Qt asks once in the life of a process, and what it hears it remembers.
    QIcon icon;
    for (const QPixmap& picture : std::as_const(m_pictures)) {
        icon.addPixmap(picture);
    }
    m_icon = std::make_unique<QSystemTrayIcon>(icon);
    m_icon->setToolTip(m_description);
    m_icon->setContextMenu(&m_menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) {
            handleClickOrItsSecondHalf();
        }
    });
    m_icon->show();
}

void QtStatusItem::exportItem() {
    if (m_busMenu != nullptr) {
        return;
    }
    QList<QImage> images;
    for (const QPixmap& picture : std::as_const(m_pictures)) {
        images << picture.toImage();
    }
    new NotifierItem(&m_busObject,
                     {.activated = [this] { handleClickOrItsSecondHalf(); },
                      .menuRequested = [this] { m_menu.popup(QCursor::pos()); }},
                     MENU_PATH, m_description, images);
    m_busMenu = new NotifierMenu(&m_busObject, [this] { tell(MouseButton::Right); });

    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.registerObject(ITEM_PATH, &m_busObject);
    bus.registerObject(MENU_PATH, &m_busObject);
    // The name that hosts expect of an item.
    m_busService = u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());
    bus.registerService(m_busService);
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
    m_menu.clear();
    for (const MenuItem& item : menu) {
        if (item.title.isEmpty()) {
            m_menu.addSeparator();
            continue;
        }
        QAction* const action = m_menu.addAction(item.title);
        if (!item.keyEquivalent.isEmpty()) {
            action->setShortcut(QKeySequence(item.keyEquivalent));
        }
        connect(action, &QAction::triggered, this, [run = item.action] { run(); });
    }
    if (m_busMenu != nullptr) {
        m_busMenu->setItems(menu);
    }
}

bool QtStatusItem::eventFilter(QObject* watched, QEvent* event) {
    // Qt takes every popup away when the program ceases to be the active one, as it does a moment after the window in
    // front has gone. A tray icon's menu has nothing to do with that; as long as a user closes it, the program is
    // active.
    if (watched == m_menu.windowHandle() && event->type() == QEvent::Close &&
        QGuiApplication::applicationState() != Qt::ApplicationActive) {
        event->ignore();
        return true;
    }
    // A menu shows an action's shortcut but leaves it to the window that it hangs from, and there is none.
    if (watched == &m_menu && event->type() == QEvent::KeyPress) {
        const QKeySequence pressed(static_cast<QKeyEvent*>(event)->key());
        for (QAction* const action : m_menu.actions()) {
            if (!action->shortcut().isEmpty() && action->shortcut() == pressed) {
                m_menu.close();
                action->trigger();
                return true;
            }
        }
    }
    // Of two clicks in quick succession Qt makes a double click, the second half of which opens no menu.
    if (event->type() == QEvent::MouseButtonDblClick && watched->inherits("QSystemTrayIconSys")) {
        const auto& click = *static_cast<QMouseEvent*>(event);
        QMouseEvent press(QEvent::MouseButtonPress, click.position(), click.scenePosition(), click.globalPosition(),
                          click.button(), click.buttons(), click.modifiers());
        QCoreApplication::sendEvent(watched, &press);
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void QtStatusItem::tell(MouseButton button) const {
    if (m_handler) {
        m_handler(button);
    }
}

void QtStatusItem::handleClickOrItsSecondHalf() {
    // The press has closed the popover where the icon's place is not known: in a host's panel, in a tray that is new.
    if (!m_hasClosedPopover || !m_hasClosedPopover(QCursor::pos())) {
        handleLeftClick();
    }
}

void QtStatusItem::handleLeftClick() {
    // A bus host's coordinates are some host's pixels, if it tells any; the pointer is still there.
    m_lastClick = QCursor::pos();
    tell(MouseButton::Left);
}

} // namespace zamber::freedesktop::tray
