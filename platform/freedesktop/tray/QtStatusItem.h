// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"
#include "platform/freedesktop/tray/NotifierHosts.h"

#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QSystemTrayIcon>

#include <functional>
#include <memory>
#include <optional>

namespace zamber {
class Symbols;
}

namespace zamber::freedesktop::tray {}

namespace zamber::freedesktop::tray {}

namespace zamber::freedesktop::tray {

class NotifierMenu;

/// The status item as a tray icon: a notifier item on the session bus where a host shows those, XEmbed otherwise. Hosts
/// that come late, change or leave are followed.
///
/// Hosts differ in who opens the menu: some tell of a right click, some open the menu that they were given, some ask
/// for its lines over the bus. All of them announce it, and the announcement counts as the right click.
class QtStatusItem final : public QObject, public StatusItem {
    Q_OBJECT

public:
    /// Whether a left click, told by a host at its release, began with the press at the pointer that has closed the
    /// popover. Such a click has had its effect.
    using HasClosedPopover = std::function<bool(QPoint pointer)>;

    explicit QtStatusItem(const Symbols& symbols, HasClosedPopover hasClosedPopover = {});
    ~QtStatusItem() override;

    void showSymbol(const QString& symbol, const QString& accessibilityDescription) override;
    std::optional<Anchor> button() const override;
    void setClickedHandler(ClickedHandler handler) override;
    void showMenuOnce(const QList<MenuItem>& menu) override;

    /// Whether a tray has taken the icon in and tells where it lies. Until then its window waits at the screen's
    /// origin.
    bool isInTray() const { return m_icon && !m_icon->geometry().isEmpty() && !m_icon->geometry().topLeft().isNull(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void useNotifierHost();
    void useTray();
    void exportItem();
    void tell(MouseButton button) const;
    void handleClickOrItsSecondHalf();
    void handleLeftClick();

    const Symbols& m_symbols;
    HasClosedPopover m_hasClosedPopover;
    QString m_description;
    QList<QPixmap> m_pictures;
    NotifierHosts m_hosts;
    QObject m_busObject; // what the hosts talk to
    NotifierMenu* m_busMenu = nullptr;
    QString m_busService;
    QMenu m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::optional<QPoint> m_lastClick; // points
    ClickedHandler m_handler;
};

} // namespace zamber::freedesktop::tray
