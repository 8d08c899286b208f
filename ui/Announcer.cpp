// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/Announcer.h"

#include "ui/AccessibleRoles.h"

#include <QAccessible>

namespace zamber::ui {

Announcer::Announcer(QWidget* parent)
    : QWidget(parent) {
    installAccessibleRoles(); // before anybody asks for the role
    setFixedSize(0, 0);
    hide();
}

void Announcer::announce(const QString& sentence) {
    if (!parentWidget()->isVisible() || !QAccessible::isActive()) {
        return;
    }
    hide();
    setAccessibleName(sentence);
    show(); // which tells readers
}

void Announcer::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    hide(); // so that it does not come back with its parent, and is heard again
}

} // namespace zamber::ui
