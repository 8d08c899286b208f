// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/ClipboardRowView.h"
#include "popover/GlidingScroll.h"
#include "popover/RowHighlights.h"
#include "popover/RowSections.h"
#include "popover/RowStack.h"
#include "popover/ThumbnailCache.h"

#include <QHash>
#include <QList>
#include <QWidget>

#include <map>
#include <memory>
#include <optional>

namespace zamber {

class Appearance;
class Scheduler;

/// The scrolling list of rows, pinned ones first. It draws only the rows that are seen and knows the heights of the
/// others by guess until they come into view. It never has the keyboard focus; the selection is told to it.
class HistoryListWidget final : public QWidget {
    Q_OBJECT

public:
    HistoryListWidget(const Symbols& symbols, const Appearance& appearance, const Scheduler& clock, QWidget* parent);
    ~HistoryListWidget() override;

    /// The entries in the order in which they are shown: all pinned ones before the others.
    void setItems(const QList<ClipboardItem>& items);
    const QList<ClipboardItem>& items() const { return m_items; }
    /// Lets go of the pictures of all other entries.
    void keepPicturesOf(const QList<ClipboardItem>& items) { m_thumbnails.keepOnly(items); }

    void setPreferences(const RowPreferences& preferences);
    void setColors(const Palette& palette);

    /// Highlights the row; an index beyond the list highlights none.
    void setSelectedIndex(int index);
    int selectedIndex() const { return m_selectedIndex; }

    /// Scrolls, in a tenth of a second, so that the row is in the middle.
    void centreOn(int index);
    /// Selects the first row and scrolls to it, both at once.
    void startAtTop();
    double scrollOffset() const { return m_scrollOffset; }

    /// Is the row highlighted, by the pointer or by the selection?
    bool isHovered(int index) const;
    bool isExpanded(int index) const;
    /// Where the row lies in the widget, in points; outside of it when it is scrolled away.
    QRect rowRectangle(int index) const;
    QRect actionRectangle(int index, RowAction action) const;
    QRect expandedTextRectangle(int index) const;

    /// What a press of the row, or of one of its buttons, does; also for assistive technology.
    void choose(int index);
    void perform(int index, RowAction action);

signals:
    void chosen(const zamber::ClipboardItem& item);
    void pinRequested(const zamber::ClipboardItem& item);
    void deleteRequested(const zamber::ClipboardItem& item);
    void menuRequested(const zamber::ClipboardItem& item, QPoint screenPosition);

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
    /// The whole text of a row while it is expanded.
    struct Expansion;
    /// What the pointer is on.
    struct Target {
        QUuid row;
        std::optional<RowAction> action;
        bool operator==(const Target&) const = default;
    };

    const ClipboardItem& item(int row) const { return m_items[row]; }
    ClipboardRowView rowView(int row);
    int rowWidth() const;
    int currentHeight(int row);
    Expansion& expansion(int row);
    void measureVisible();
    void measureAround(int row);
    void measure(int element);
    void invalidateHeights();
    /// Runs a change of heights in such a way that what the user looks at stays where it is.
    template <class Change>
    void keepingPlace(Change change);

    void updateHighlights(Motion motion);
    void highlightsAdvanced();
    void scrollTo(double offset);
    void glide();
    double centredOffset(int row) const;

    std::optional<int> rowAt(QPoint point) const;
    std::optional<Target> targetAt(QPoint point);
    void setPointer(std::optional<QPoint> point);
    void forgetHoverThatMovedAway();
    Motion motion() const;

    void paintHeader(QPainter& painter, const QRect& area, bool isPinnedHeader) const;
    void paintRow(QPainter& painter, const QRect& area, int row);

    const Symbols& m_symbols;
    const Appearance& m_appearance;
    const Scheduler& m_clock;
    Palette m_palette;
    RowPreferences m_preferences;

    QList<ClipboardItem> m_items;
    QHash<QUuid, int> m_rowById;
    RowSections m_sections;
    RowStack m_stack;
    ThumbnailCache m_thumbnails;
    RowHighlights m_highlights;
    std::map<QUuid, Expansion> m_expansions;

    int m_selectedIndex = 0;
    std::optional<Target> m_hovered;
    std::optional<Target> m_pressed;

    double m_scrollOffset = 0;
    GlidingScroll m_glide;
    QUuid m_glideTarget;
};

} // namespace zamber
