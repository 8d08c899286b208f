// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"
#include "platform/freedesktop/tray/EmbeddedIcon.h"
#include "platform/freedesktop/tray/NotifierHosts.h"
#include "platform/freedesktop/tray/TrayMenu.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <optional>

namespace zamber::freedesktop::popover {
class WindowSystem;
}

namespace zamber::freedesktop::tray {

class NotifierMenu;
class TrayClicks;

/// The status item as a tray icon: a notifier item on the session bus where a host shows those, XEmbed otherwise. Hosts
/// that come late, change or leave are followed.
///
/// Hosts on the bus differ in who opens the menu: some draw one from the lines that they ask for, some ask for it to be
/// shown. Either counts as the right click. An embedded icon is clicked when the button comes up over it.
class TrayIcon final : public QObject, public StatusItem {
    Q_OBJECT

public:
    /// The hint says which key ⌘ is, for people. The others outlive this object; the embedded icon may be missing.
    TrayIcon(TrayClicks& clicks, EmbeddedIcon* embeddedIcon, popover::WindowSystem& windowSystem,
             const QString& commandKeyHint);
    ~TrayIcon() override;

    /// Shows the drawing for panels, whatever the symbol's name.
    void showSymbol(const QString& symbol, const QString& accessibilityDescription) override;
    std::optional<Anchor> button() const override;
    void setClickedHandler(ClickedHandler handler) override;
    void showMenuOnce(const QList<MenuItem>& menu) override;

private:
    std::optional<QRect> embeddedRectangle() const;
    void useNotifierHost();
    void useTray();
    void exportItem();
    void tell(MouseButton button) const;
    void handleClickOnEmbeddedIcon(Qt::MouseButton button);
    void hideToolTip();
    void handleLeftClick();
    void openMenu(QPoint place);
    QPoint cornerOfTray() const;

    TrayClicks& m_clicks;
    EmbeddedIcon* m_embeddedIcon;
    popover::WindowSystem& m_windowSystem;
    QString m_description;
    NotifierHosts m_hosts;
    QObject m_busObject; // what the hosts talk to
    NotifierMenu* m_busMenu = nullptr;
    QString m_busService;
    TrayMenu m_menu;
    QTimer m_toolTipDelay;             // from the pointer's coming to rest on the embedded icon
    std::optional<QPoint> m_lastClick; // points
    ClickedHandler m_handler;
};

} // namespace zamber::freedesktop::tray
