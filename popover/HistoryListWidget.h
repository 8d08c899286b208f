// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/ClipboardRowView.h"
#include "popover/DetectedLinks.h"
#include "popover/GlidingScroll.h"
#include "popover/LargeTexts.h"
#include "popover/RowHighlights.h"
#include "popover/RowSections.h"
#include "popover/RowStack.h"
#include "popover/ThumbnailCache.h"

#include <QList>
#include <QWidget>

#include <map>
#include <memory>
#include <optional>

namespace zamber {
class Appearance;
class Scheduler;
} // namespace zamber

namespace zamber::popover {}

namespace zamber::popover {} // namespace zamber::popover

namespace zamber::popover {

/// The scrolling list of rows, pinned ones first. It draws only the rows that are seen and knows the heights of the
/// others by guess until they come into view. It never has the keyboard focus; the selection is told to it.
class HistoryListWidget final : public QWidget {
    Q_OBJECT

public:
    /// Without a link detector no text is a link.
    HistoryListWidget(const Symbols& symbols, const Appearance& appearance, const Scheduler& clock,
                      LinkDetector* linkDetector, QWidget* parent);
    ~HistoryListWidget() override;

    /// The entries in the order in which they are shown: all pinned ones before the others.
    void setItems(const QList<clipboard::ClipboardItem>& items);
    const QList<clipboard::ClipboardItem>& items() const { return m_items; }
    /// Lets go of what is kept about all other entries.
    void forgetOthersThan(const QList<clipboard::ClipboardItem>& items);

    void setPreferences(const RowPreferences& preferences);
    void setColors(const ui::Palette& palette);

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
    bool isExpanded(int index);
    /// Where the row lies in the widget, in points; outside of it when it is scrolled away.
    QRect rowRectangle(int index) const;
    QRect actionRectangle(int index, RowAction action);
    QRect expandedTextRectangle(int index);

    /// What a press of the row, or of one of its buttons, does; also for assistive technology.
    void choose(int index);
    void perform(int index, RowAction action);
    /// The row's text as it is shown, unexpanded.
    QString preview(int index) { return rowView(index).preview(); }
    /// Where the row's link leads, if it has one.
    std::optional<QUrl> link(int index) { return m_links.in(item(index)); }
    /// The small buttons that the row has while it is highlighted.
    /// What is beside the preview, in words: the kind of content, the counts, the age.
    QStringList describe(int index);
    QList<RowAction> actions(int index) { return rowView(index).actions(); }

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
    /// The whole text of a row while it is expanded.
    struct Expansion;
    /// What the pointer is on.
    struct Target {
        QUuid row;
        std::optional<RowAction> action;
        bool operator==(const Target&) const = default;
    };

    const clipboard::ClipboardItem& item(int row) const { return m_items[row]; }
    std::optional<int> rowOf(const QUuid& id) const;
    ClipboardRowView rowView(int row);
    void remeasure(const QUuid& id);
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
    ui::Palette m_palette;
    RowPreferences m_preferences;

    QList<clipboard::ClipboardItem> m_items;
    RowSections m_sections;
    RowStack m_stack;
    ThumbnailCache m_thumbnails;
    DetectedLinks m_links;
    LargeTexts m_largeTexts;
    RowHighlights m_highlights;
    QList<QUuid> m_litBefore;
    std::map<QUuid, Expansion> m_expansions;

    int m_selectedIndex = 0;
    std::optional<Target> m_hovered;
    std::optional<Target> m_pressed;
    std::optional<QPoint> m_pointer;

    double m_scrollOffset = 0;
    GlidingScroll m_glide;
    QUuid m_glideTarget;
};

} // namespace zamber::popover
