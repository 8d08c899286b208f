// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"

#include <QMenu>

namespace zamber::popover {

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
