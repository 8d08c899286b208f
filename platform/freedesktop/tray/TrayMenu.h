// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"

#include <QMenu>

namespace zamber::freedesktop::tray {

/// The status item's menu where no host draws it.
class TrayMenu final : public QMenu {
    Q_OBJECT

public:
    /// The hint says which key ⌘ is, for people.
    explicit TrayMenu(QString commandKeyHint);

    void setItems(const QList<MenuItem>& items);

    /// Opens the menu there (points, on the screen); one that is open moves there.
    void open(QPoint place);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString m_commandKeyHint;
    bool m_hadFocus = false; ///< its window on Wayland, since it was opened
};

} // namespace zamber::freedesktop::tray
