// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"
#include "platform/freedesktop/tray/NotifierHosts.h"
#include "platform/freedesktop/tray/TrayMenu.h"

#include <QImage>
#include <QObject>
#include <QPoint>
#include <QSystemTrayIcon>

#include <memory>
#include <optional>

class QMouseEvent;
class QWidget;

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
    /// The hint says which key ⌘ is, for people. The others outlive this object.
    TrayIcon(TrayClicks& clicks, const popover::WindowSystem& windowSystem, const QString& commandKeyHint);
    ~TrayIcon() override;

    /// Shows the drawing for panels, whatever the symbol's name.
    void showSymbol(const QString& symbol, const QString& accessibilityDescription) override;
    std::optional<Anchor> button() const override;
    void setClickedHandler(ClickedHandler handler) override;
    void showMenuOnce(const QList<MenuItem>& menu) override;

    /// Where the icon lies once a tray has taken it in; nothing while none has.
    std::optional<QRect> embeddedRectangle() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void useNotifierHost();
    void useTray();
    void exportItem();
    void tell(MouseButton button) const;
    void handleReleaseOnEmbeddedIcon(const QWidget& icon, const QMouseEvent& release);
    void handleLeftClick();
    void openMenu(QPoint place);

    TrayClicks& m_clicks;
    const popover::WindowSystem& m_windowSystem;
    QString m_description;
    QList<QImage> m_pictures;
    NotifierHosts m_hosts;
    QObject m_busObject; // what the hosts talk to
    NotifierMenu* m_busMenu = nullptr;
    QString m_busService;
    TrayMenu m_menu;
    std::unique_ptr<QSystemTrayIcon> m_embeddedIcon;
    Qt::MouseButton m_pressedButton = Qt::NoButton; ///< the one that went down on the embedded icon
    std::optional<QPoint> m_lastClick;              // points
    ClickedHandler m_handler;
};

} // namespace zamber::freedesktop::tray
