// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/HistoryLayout.h"
#include "popover/ListPointer.h"

#include <QWidget>

namespace zamber {
class Appearance;
}

namespace zamber::popover {

/// The scrolling list of rows, pinned ones first. It draws the rows in view and emits what the user does to them;
/// HistoryLayout places the rows, ListPointer gives the pointer its meaning. The list never has the keyboard focus;
/// its owner sets the selection.
class HistoryListWidget final : public QWidget {
    Q_OBJECT

public:
    /// Without a link detector no text is a link.
    HistoryListWidget(const Symbols& symbols, const Appearance& appearance, Scheduler& scheduler,
                      LinkDetector* linkDetector, QWidget* parent);

    void setItems(const QList<clipboard::ClipboardItem>& items);
    const QList<clipboard::ClipboardItem>& items() const { return m_layout.items(); }
    /// Forgets the measures and pictures of all other entries.
    void keepOnly(const QList<clipboard::ClipboardItem>& items) { m_layout.keepOnly(items); }
    void setPreferences(const RowPreferences& preferences) { m_layout.setPreferences(preferences); }
    void setColors(const ui::Palette& palette);

    /// Highlights the row and scrolls, in a tenth of a second, so that it is in the middle; an index beyond the list
    /// highlights none.
    void select(int index);
    int selectedIndex() const { return m_layout.selectedIndex(); }
    /// Scrolls to the selected row, or to the top without one, at once.
    void showSelection() { m_layout.showSelection(); }
    /// Selects the first row and scrolls to it, both at once.
    void startAtTop();
    double scrollOffset() const { return m_layout.geometry().offset(); }

    /// Is the row highlighted, by the pointer or by the selection?
    bool isHovered(int index) const { return m_layout.isHighlighted(index); }
    bool isExpanded(int index) { return m_layout.rowView(index).isExpanded(); }
    /// Where the row lies in the widget, in points; outside of it when it is scrolled away.
    QRect rowRectangle(int index) const { return m_layout.rowRectangle(index); }
    QRect actionRectangle(int index, RowAction action);
    QRect expandedTextRectangle(int index);

    /// Does the same as a click on the row, or on one of its buttons; also for assistive technology.
    void choose(int index);
    void perform(int index, RowAction action);
    /// The row's text as it is shown, unexpanded.
    QString preview(int index) { return m_layout.rowView(index).preview(); }
    /// The row's link, if it has one.
    std::optional<QUrl> link(int index) { return m_layout.link(index); }
    /// The facts beside the preview, in words: the kind of content, the counts, the age.
    QStringList describe(int index);
    /// The small buttons that the row has while it is highlighted.
    QList<RowAction> actions(int index) { return m_layout.rowView(index).actions(); }

signals:
    void chosen(const zamber::clipboard::ClipboardItem& item);
    void pinRequested(const zamber::clipboard::ClipboardItem& item);
    void deleteRequested(const zamber::clipboard::ClipboardItem& item);
    void openLinkRequested(const QUrl& address);
    void selectRequested(int index);
    void menuRequested(int index, QPoint screenPosition);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    Motion motion() const;
    void paintHeader(QPainter& painter, const QRect& area, bool isPinnedHeader) const;
    void paintRow(QPainter& painter, const QRect& area, int row);

    const Symbols& m_symbols;
    const Appearance& m_appearance;
    const Scheduler& m_clock;
    ui::Palette m_palette;
    HistoryLayout m_layout;
    ListPointer m_pointer;
};

} // namespace zamber::popover
