// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QUuid>

namespace zamber::popover {

class HistoryListWidget;

/// The list as assistive technology sees it: a list of items that are named by their previews, with their buttons and
/// the whole text as children while the row shows them.
class HistoryListAccessible final : public QAccessibleWidget {
public:
    explicit HistoryListAccessible(HistoryListWidget* list);
    ~HistoryListAccessible() override;

    /// Makes Qt use this class for history lists. May be called any number of times.
    static void install();

    /// Reports that the selection has moved to the row, and the focus with it: some screen readers follow only that.
    static void announceSelection(HistoryListWidget* list, int row);

    /// Reports that the focus is where it has been all the time.
    static void announceFocus(QWidget& focused);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

private:
    const HistoryListWidget* list() const;
    void forgetRowsThatAreGone() const;

    /// Rows keep their interface as long as they are listed: screen readers hold on to it.
    mutable QHash<QUuid, QAccessible::Id> m_rows;
};

} // namespace zamber::popover
