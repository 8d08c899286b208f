// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/ClipboardRowView.h"

#include <QAccessible>
#include <QPointer>
#include <QUuid>

#include <array>
#include <optional>

namespace zamber::popover {

class HistoryListWidget;

/// The parts of a row for assistive technology.
enum class RowPart { Text, OpenLink, Pin, Delete };

/// One row of the list, or a part of it. Found again by its entry's id, so that it survives every reordering; without
/// its entry it is invalid.
class HistoryRowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    HistoryRowAccessible(HistoryListWidget* list, const QUuid& item, std::optional<RowPart> part);
    ~HistoryRowAccessible() override;

    const QUuid& itemId() const { return m_item; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    QString localizedActionName(const QString& name) const override { return name; }
    void doAction(const QString& wanted) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    std::optional<int> row() const;
    QList<RowPart> parts() const;
    QString name(int row) const;
    QString description(int row) const;
    QAccessibleInterface* part(RowPart part) const;

    QPointer<HistoryListWidget> m_list;
    QUuid m_item;
    std::optional<RowPart> m_part;
    mutable std::array<QAccessible::Id, 4> m_parts{};
};

} // namespace zamber::popover
