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
#include <QDBusConnection>
#include <QScreen>
#include <QStyle>
#include <QToolTip>

#include <array>
#include <utility>

namespace zamber::freedesktop::tray {

using namespace Qt::StringLiterals;

namespace {

/// What hosts ask for, in pixels.
constexpr std::array ICON_SIZES{16, 22, 24, 32, 48, 64};

const QString ITEM_PATH = u"/StatusNotifierItem"_s;
const QString MENU_PATH = u"/MenuBar"_s;

} // namespace

TrayIcon::TrayIcon(TrayClicks& clicks, EmbeddedIcon* embeddedIcon, popover::WindowSystem& windowSystem,
                   const QString& commandKeyHint)
    : m_clicks(clicks)
    , m_embeddedIcon(embeddedIcon)
    , m_windowSystem(windowSystem)
    , m_hosts(QDBusConnection::sessionBus())
    , m_menu(commandKeyHint) {
    m_clicks.setEmbeddedIcon([this] { return embeddedRectangle(); });
    if (m_embeddedIcon != nullptr) {
        connect(m_embeddedIcon, &EmbeddedIcon::clicked, this, &TrayIcon::handleClickOnEmbeddedIcon);
        connect(m_embeddedIcon, &EmbeddedIcon::pointerMoved, &m_toolTipDelay, qOverload<>(&QTimer::start));
        connect(m_embeddedIcon, &EmbeddedIcon::pointerLeft, this, &TrayIcon::hideToolTip);
    }
    m_toolTipDelay.setSingleShot(true);
    m_toolTipDelay.setInterval(QApplication::style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay));
    m_toolTipDelay.callOnTimeout(this, [this] { QToolTip::showText(QCursor::pos(), m_description); });
    connect(&m_windowSystem, &popover::WindowSystem::focusLost, this, [this] {
        if (QApplication::activeWindow() == nullptr) {
            m_menu.hide();
        }
    });
    connect(&m_hosts, &NotifierHosts::appeared, this, &TrayIcon::useNotifierHost);
    connect(&m_hosts, &NotifierHosts::disappeared, this, &TrayIcon::useTray);
}

TrayIcon::~TrayIcon() {
    m_clicks.setEmbeddedIcon({});
}

void TrayIcon::showSymbol(const QString& /*symbol*/, const QString& accessibilityDescription) {
    m_description = accessibilityDescription;
    m_hosts.start();
}

void TrayIcon::useNotifierHost() {
    if (m_embeddedIcon != nullptr) {
        m_embeddedIcon->hide();
    }
    exportItem();
    m_hosts.registerItem(m_busService);
}

void TrayIcon::useTray() {
    if (m_embeddedIcon != nullptr) {
        m_embeddedIcon->show(trayPicture, m_description);
    }
}

void TrayIcon::exportItem() {
    if (m_busMenu != nullptr) {
        return;
    }
    QList<QImage> pictures;
    for (const int size : ICON_SIZES) {
        pictures << trayPicture(size);
    }
    new NotifierItem(&m_busObject,
                     {.activated = [this] { handleLeftClick(); },
                      .menuRequested = [this] { openMenu(m_windowSystem.pointer().value_or(cornerOfTray())); },
                      .tokenProvided = [this](const QString& token) { m_windowSystem.useActivationToken(token); }},
                     MENU_PATH, m_description, pictures);
    m_busMenu = new NotifierMenu(&m_busObject, [this] { tell(MouseButton::Right); });

    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.registerObject(ITEM_PATH, &m_busObject);
    bus.registerObject(MENU_PATH, &m_busObject);
    // The name that hosts expect of an item.
    m_busService = u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());
    bus.registerService(m_busService);
}

std::optional<QRect> TrayIcon::embeddedRectangle() const {
    return m_embeddedIcon != nullptr ? m_embeddedIcon->rectangle() : std::nullopt;
}

std::optional<Anchor> TrayIcon::button() const {
    if (const std::optional<QRect> icon = embeddedRectangle()) {
        return Anchor{.screenRectangle = *icon};
    }
    if (m_lastClick) {
        return Anchor{.screenRectangle = QRect(*m_lastClick, QSize(1, 1))};
    }
    return Anchor{.screenRectangle = QRect(cornerOfTray(), QSize(1, 1))};
}

QPoint TrayIcon::cornerOfTray() const {
    const QScreen& screen = m_windowSystem.currentScreen();
    return popover::cornerNextToPanel(screen.geometry(), workAreaOf(screen, m_windowSystem));
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

void TrayIcon::tell(MouseButton button) const {
    if (m_handler) {
        m_handler(button);
    }
}

void TrayIcon::handleClickOnEmbeddedIcon(Qt::MouseButton button) {
    if (button == Qt::LeftButton) {
        handleLeftClick();
    } else if (button == Qt::RightButton) {
        openMenu(QCursor::pos());
    }
}

void TrayIcon::hideToolTip() {
    m_toolTipDelay.stop();
    QToolTip::hideText();
}

void TrayIcon::handleLeftClick() {
    // A bus host's coordinates are some host's pixels, if it tells any; the pointer is still there.
    const std::optional<QPoint> pointer = m_windowSystem.pointer();
    if (m_clicks.isToBeActedOn(pointer)) {
        m_lastClick = pointer;
        tell(MouseButton::Left);
    }
}

void TrayIcon::openMenu(QPoint place) {
    tell(MouseButton::Right);
    m_clicks.closePopoverForMenu();
    m_menu.open(place);
    m_windowSystem.place(m_menu.winId(), m_menu.geometry());
}

} // namespace zamber::freedesktop::tray
