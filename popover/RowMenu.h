// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"

#include <QMenu>

#include <functional>

namespace zamber::popover {

/// What the lines of a row's menu do.
struct RowMenuActions {
    std::function<void()> copy;
    std::function<void()> openLink; ///< empty: the row has no link
    std::function<void()> togglePin;
    std::function<void()> remove;
};

/// The menu of a row with a pinned or an unpinned entry.
QList<MenuItem> rowMenuLines(bool isPinned, const RowMenuActions& actions);

/// A row's menu where the desktop has none to show. The keys in its right column choose as well, with or without their
/// modifiers.
class RowMenu final : public QMenu {
    Q_OBJECT

public:
    RowMenu(const QList<MenuItem>& lines, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace zamber::popover
