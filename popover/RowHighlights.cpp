// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RowHighlights.h"

#include "popover/FrameInterval.h"
#include "popover/HistoryRows.h"

#include <algorithm>
#include <utility>

namespace zamber::popover {

namespace {

constexpr double HIGHLIGHT_MS = 150;

double goal(const HistoryRow& row) {
    return row.isHighlighted ? 1 : 0;
}

} // namespace

RowHighlights::RowHighlights(HistoryRows& rows)
    : m_rows(rows) {
    m_frames.setInterval(FRAME_INTERVAL);
    m_frames.setTimerType(Qt::PreciseTimer);
    connect(&m_frames, &QTimer::timeout, this, &RowHighlights::advance);
}

void RowHighlights::setHighlighted(const QList<QUuid>& highlighted, Motion motion) {
    QList<QUuid> affected = highlighted;
    for (auto& [id, row] : m_rows) {
        if (std::exchange(row.isHighlighted, false) && !highlighted.contains(id)) {
            affected.append(id);
        }
    }
    for (const QUuid& id : highlighted) {
        m_rows.of(id).isHighlighted = true;
    }
    // The buttons of a highlighted row take room from its text, and give it back, before anything fades.
    emit advanced(affected);
    if (motion == Motion::Immediate) {
        m_frames.stop();
        move(1);
        return;
    }
    const bool isAtGoal = std::ranges::all_of(
        m_rows, [](const auto& entry) { return entry.second.highlightProgress == goal(entry.second); });
    if (!isAtGoal && !m_frames.isActive()) {
        m_sinceFrame.start();
        m_frames.start();
    }
}

void RowHighlights::advance() {
    move(static_cast<double>(m_sinceFrame.restart()) / HIGHLIGHT_MS);
    const bool isAtGoal = std::ranges::all_of(
        m_rows, [](const auto& entry) { return entry.second.highlightProgress == goal(entry.second); });
    if (isAtGoal) {
        m_frames.stop();
        emit settled();
    }
}

void RowHighlights::move(double step) {
    QList<QUuid> moved;
    for (auto& [id, row] : m_rows) {
        const double before = row.highlightProgress;
        row.highlightProgress = std::clamp(goal(row), before - step, before + step);
        if (row.highlightProgress != before) {
            moved.append(id);
        }
    }
    if (!moved.isEmpty()) {
        emit advanced(moved);
    }
}

} // namespace zamber::popover
