// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/AccessibleRoles.h"

#include "ui/Announcer.h"
#include "ui/Badge.h"
#include "ui/ConfirmationSheet.h"

#include <QAccessibleWidget>

namespace zamber::ui {

namespace {

QAccessibleInterface* createForControl(const QString&, QObject* object) {
    if (auto* badge = qobject_cast<Badge*>(object)) {
        return new QAccessibleWidget(badge, QAccessible::StaticText);
    }
    if (auto* sheet = qobject_cast<ConfirmationSheet*>(object)) {
        return new QAccessibleWidget(sheet, QAccessible::AlertMessage);
    }
    if (auto* announcer = qobject_cast<Announcer*>(object)) {
        return new QAccessibleWidget(announcer, QAccessible::Notification);
    }
    return nullptr;
}

} // namespace

void installAccessibleRoles() {
    QAccessible::installFactory(createForControl); // installing it again changes nothing
}

} // namespace zamber::ui
