// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/TrayIcon.h"

#include "platform/freedesktop/popover/WindowSystem.h"
#include "platform/freedesktop/popover/WorkArea.h"
#include "platform/freedesktop/tray/NotifierItem.h"
#include "platform/freedesktop/tray/NotifierMenu.h"
#include "platform/freedesktop/tray/TrayClicks.h"
#include "platform/freedesktop/tray/TrayPicture.h"

#include <QApplication>
#include <QCursor>
#include <QDBusConnection>
#include <QIcon>
#include <QMouseEvent>
#include <QPixmap>
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

/// What Qt shows an embedded icon in.
bool isEmbeddedIcon(const QObject* object) {
    return object->inherits("QSystemTrayIconSys");
}

const QScreen& screenWithPointer() {
    const QScreen* const screen = QGuiApplication::screenAt(QCursor::pos());
    return screen != nullptr ? *screen : *QGuiApplication::primaryScreen();
}

} // namespace

TrayIcon::TrayIcon(TrayClicks& clicks, const popover::WindowSystem& windowSystem, const QString& commandKeyHint)
    : m_clicks(clicks)
    , m_windowSystem(windowSystem)
    , m_hosts(QDBusConnection::sessionBus())
    , m_menu(commandKeyHint) {
    m_clicks.setEmbeddedIcon([this] { return embeddedRectangle(); });
    QCoreApplication::instance()->installEventFilter(this);
    connect(&m_hosts, &NotifierHosts::appeared, this, &TrayIcon::useNotifierHost);
    connect(&m_hosts, &NotifierHosts::disappeared, this, &TrayIcon::useTray);
}

TrayIcon::~TrayIcon() {
    m_clicks.setEmbeddedIcon({});
}

void TrayIcon::showSymbol(const QString& /*symbol*/, const QString& accessibilityDescription) {
    m_description = accessibilityDescription;
    for (const int size : ICON_SIZES) {
        m_pictures << trayPicture(size);
    }
    m_hosts.start();
}

void TrayIcon::useNotifierHost() {
    m_embeddedIcon.reset();
    exportItem();
    m_hosts.registerItem(m_busService);
}

void TrayIcon::useTray() {
    // Not before it is known that no host is there: Qt looks for a host once in the life of a process.
    QIcon icon;
    for (const QImage& picture : std::as_const(m_pictures)) {
        icon.addPixmap(QPixmap::fromImage(picture));
    }
    m_embeddedIcon = std::make_unique<QSystemTrayIcon>(icon);
    m_embeddedIcon->setToolTip(m_description);
    m_embeddedIcon->show();
}

void TrayIcon::exportItem() {
    if (m_busMenu != nullptr) {
        return;
    }
    new NotifierItem(
        &m_busObject,
        {.activated = [this] { handleLeftClick(); }, .menuRequested = [this] { openMenu(QCursor::pos()); }}, MENU_PATH,
        m_description, m_pictures);
    m_busMenu = new NotifierMenu(&m_busObject, [this] { tell(MouseButton::Right); });

    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.registerObject(ITEM_PATH, &m_busObject);
    bus.registerObject(MENU_PATH, &m_busObject);
    // The name that hosts expect of an item.
    m_busService = u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());
    bus.registerService(m_busService);
}

std::optional<QRect> TrayIcon::embeddedRectangle() const {
    // The tray shows the icon's window when it has taken it in. Until then the window waits, unseen, at the screen's
    // origin, where a tray may be as well.
    const bool isSeen =
        m_embeddedIcon && std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* widget) {
            return isEmbeddedIcon(widget) && widget->windowHandle() != nullptr && widget->windowHandle()->isExposed();
        });
    return isSeen ? std::optional(m_embeddedIcon->geometry()) : std::nullopt;
}

std::optional<Anchor> TrayIcon::button() const {
    if (const std::optional<QRect> icon = embeddedRectangle()) {
        return Anchor{.screenRectangle = *icon};
    }
    if (m_lastClick) {
        return Anchor{.screenRectangle = QRect(*m_lastClick, QSize(1, 1))};
    }
    const QScreen& screen = screenWithPointer();
    const QPoint corner = popover::cornerNextToPanel(screen.geometry(), workAreaOf(screen, m_windowSystem));
    return Anchor{.screenRectangle = QRect(corner, QSize(1, 1))};
}

void TrayIcon::setClickedHandler(ClickedHandler handler) {
    m_handler = std::move(handler);
}

void TrayIcon::showMenuOnce(const QList<MenuItem>& menu) {
    m_menu.setItems(menu);
    if (m_busMenu != nullptr) {
        m_busMenu->setItems(menu);
    }
}

bool TrayIcon::eventFilter(QObject* watched, QEvent* event) {
    if (!isEmbeddedIcon(watched)) {
        return QObject::eventFilter(watched, event);
    }
    // Qt itself acts at the press, and makes a double click of two clicks in quick succession.
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_pressedButton = static_cast<QMouseEvent*>(event)->button();
        return true;
    case QEvent::MouseButtonRelease:
        handleReleaseOnEmbeddedIcon(*static_cast<QWidget*>(watched), *static_cast<QMouseEvent*>(event));
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

void TrayIcon::tell(MouseButton button) const {
    if (m_handler) {
        m_handler(button);
    }
}

void TrayIcon::handleReleaseOnEmbeddedIcon(const QWidget& icon, const QMouseEvent& release) {
    const bool isClick = std::exchange(m_pressedButton, Qt::NoButton) == release.button();
    // In the icon's own coordinates: Qt learns its place on the screen late when the tray moves its icons.
    if (!isClick || !icon.rect().contains(release.position().toPoint())) {
        return;
    }
    const QPoint place = release.globalPosition().toPoint();
    if (release.button() == Qt::LeftButton) {
        handleLeftClick();
    } else if (release.button() == Qt::RightButton) {
        openMenu(place);
    }
}

void TrayIcon::handleLeftClick() {
    // A bus host's coordinates are some host's pixels, if it tells any; the pointer is still there.
    const QPoint pointer = QCursor::pos();
    if (m_clicks.isToBeActedOn(pointer)) {
        m_lastClick = pointer;
        tell(MouseButton::Left);
    }
}

void TrayIcon::openMenu(QPoint place) {
    tell(MouseButton::Right);
    m_menu.open(place);
}

} // namespace zamber::freedesktop::tray
