// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/HistoryListWidget.h"

#include "platform/Appearance.h"
#include "platform/Scheduler.h"
#include "popover/HistoryListAccessible.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {
/// How far one notch of a wheel goes, in points.
constexpr double POINTS_PER_NOTCH = 56;
constexpr double ANGLE_PER_NOTCH = 120;
} // namespace

HistoryListWidget::HistoryListWidget(const Symbols& symbols, const Appearance& appearance, Scheduler& scheduler,
                                     LinkDetector* linkDetector, QWidget* parent)
    : QWidget(parent)
    , m_symbols(symbols)
    , m_appearance(appearance)
    , m_clock(scheduler)
    , m_layout(linkDetector, [this] { return motion(); })
    , m_pointer(m_layout, scheduler, [this] { return motion(); }) {
    HistoryListAccessible::install();
    setAccessibleName(u"Clipboard history"_s);
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    connect(&m_layout, &HistoryLayout::changed, this, qOverload<>(&QWidget::update));
}

void HistoryListWidget::setItems(const QList<clipboard::ClipboardItem>& items) {
    m_pointer.setItems(items);
    QAccessibleEvent reordered(this, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&reordered);
}

void HistoryListWidget::setColors(const ui::Palette& palette) {
    m_palette = palette;
    update();
}

Motion HistoryListWidget::motion() const {
    return m_appearance.reducedMotion() || !isVisible() ? Motion::Immediate : Motion::Animated;
}

void HistoryListWidget::select(int index) {
    m_pointer.endScrolling();
    m_layout.setSelectedIndex(index, motion());
    if (index < items().size()) {
        m_layout.centreOn(index);
    }
}

void HistoryListWidget::startAtTop() {
    m_layout.setSelectedIndex(0, Motion::Immediate);
    m_layout.showSelection();
}

QRect HistoryListWidget::actionRectangle(int index, RowAction action) {
    return m_layout.rowView(index).actionArea(rowRectangle(index), action);
}

QRect HistoryListWidget::expandedTextRectangle(int index) {
    return m_layout.rowView(index).textArea(rowRectangle(index));
}

QStringList HistoryListWidget::describe(int index) {
    const ClipboardRowView view = m_layout.rowView(index);
    QStringList facts{view.typeIcon().meaning};
    facts.append(view.counts());
    facts.append(view.age(m_clock.now()));
    facts.removeAll(QString());
    facts.removeAll(u"·"_s);
    return facts;
}

void HistoryListWidget::choose(int index) {
    const clipboard::ClipboardItem copy = items()[index]; // the list may change in the course of the signal
    emit chosen(copy);
}

void HistoryListWidget::perform(int index, RowAction action) {
    const clipboard::ClipboardItem copy = items()[index];
    switch (action) {
    case RowAction::OpenLink:
        if (const auto address = link(index)) {
            emit openLinkRequested(*address);
        }
        break;
    case RowAction::Pin:
        emit pinRequested(copy);
        break;
    case RowAction::Delete:
        emit deleteRequested(copy);
        break;
    }
}

void HistoryListWidget::mouseMoveEvent(QMouseEvent* event) {
    m_pointer.moved(event->position().toPoint());
    update();
}

void HistoryListWidget::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    m_pointer.left();
    update();
}

void HistoryListWidget::mousePressEvent(QMouseEvent* event) {
    m_pointer.pressed(event->position().toPoint(), event->button() == Qt::LeftButton);
    update();
}

void HistoryListWidget::mouseReleaseEvent(QMouseEvent* event) {
    const auto clicked = m_pointer.released(event->position().toPoint(), event->button() == Qt::LeftButton);
    update();
    const auto row = clicked ? m_layout.rowOf(clicked->row) : std::nullopt;
    if (!row) {
        return;
    }
    if (clicked->action) {
        perform(*row, *clicked->action);
    } else {
        choose(*row);
    }
}

void HistoryListWidget::contextMenuEvent(QContextMenuEvent* event) {
    if (const auto row = m_layout.rowAt(event->pos())) {
        emit menuRequested(*row, event->globalPos());
    }
}

void HistoryListWidget::wheelEvent(QWheelEvent* event) {
    const double distance = event->pixelDelta().isNull() ? event->angleDelta().y() / ANGLE_PER_NOTCH * POINTS_PER_NOTCH
                                                         : event->pixelDelta().y();
    m_pointer.wheelTurned(event->position().toPoint(), -distance);
    event->accept();
}

void HistoryListWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_layout.setView(size(), devicePixelRatioF());
}

void HistoryListWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_layout.setView(size(), devicePixelRatioF());
}

void HistoryListWidget::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_layout.stopGliding();
    m_pointer.reset();
}

} // namespace zamber::popover
