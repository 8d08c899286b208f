// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"

#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QSystemTrayIcon>

#include <memory>
#include <optional>

namespace zamber {

class Symbols;

/// The status item as a tray icon: StatusNotifierItem where a watcher runs, XEmbed otherwise.
///
/// Hosts differ in who opens the menu: some tell of a right click, some open the menu that they were given, some ask
/// for its lines over the bus. All of them announce it, and the announcement counts as the right click.
class QtStatusItem final : public QObject, public StatusItem {
    Q_OBJECT

public:
    explicit QtStatusItem(const Symbols& symbols);

    void showSymbol(const QString& symbol, const QString& accessibilityDescription) override;
    std::optional<Anchor> button() const override;
    void setClickedHandler(ClickedHandler handler) override;
    void showMenuOnce(const QList<MenuItem>& menu) override;

    /// Whether a tray has taken the icon in and tells where it lies.
    bool isInTray() const { return m_icon && !m_icon->geometry().isEmpty(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void handleActivation(QSystemTrayIcon::ActivationReason reason);

    const Symbols& m_symbols;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::optional<QPoint> m_lastClick; // points
    ClickedHandler m_handler;
};

} // namespace zamber
