// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RowHighlights.h"

#include <algorithm>
#include <chrono>

namespace zamber::popover {

using namespace std::chrono_literals;

namespace {
constexpr double HIGHLIGHT_MS = 150;
constexpr auto FRAME = 16ms;
} // namespace

RowHighlights::RowHighlights() {
    m_frames.setInterval(FRAME);
    m_frames.setTimerType(Qt::PreciseTimer);
    connect(&m_frames, &QTimer::timeout, this, &RowHighlights::advance);
}

void RowHighlights::setHighlighted(const QSet<QUuid>& rows, Motion motion) {
    m_highlighted = rows;
    if (motion == Motion::Immediate) {
        m_frames.stop();
        m_progress.clear();
        for (const QUuid& row : rows) {
            m_progress.insert(row, 1);
        }
        return;
    }
    for (const QUuid& row : rows) {
        if (!m_progress.contains(row)) {
            m_progress.insert(row, 0);
        }
    }
    const bool isSettled = m_progress.size() == rows.size() &&
                           std::ranges::all_of(m_progress, [](double progress) { return progress >= 1; });
    if (!isSettled && !m_frames.isActive()) {
        m_sinceFrame.start();
        m_frames.start();
    }
}

double RowHighlights::value(const QUuid& row) const {
    const double progress = m_progress.value(row, 0);
    return progress * progress * (3 - 2 * progress);
}

void RowHighlights::advance() {
    const double step = static_cast<double>(m_sinceFrame.restart()) / HIGHLIGHT_MS;
    bool isMoving = false;
    for (auto row = m_progress.begin(); row != m_progress.end();) {
        const bool isRising = m_highlighted.contains(row.key());
        *row = std::clamp(*row + (isRising ? step : -step), 0.0, 1.0);
        isMoving |= isRising ? *row < 1 : *row > 0;
        row = !isRising && *row <= 0 ? m_progress.erase(row) : std::next(row);
    }
    if (!isMoving) {
        m_frames.stop();
    }
    emit advanced();
}

} // namespace zamber::popover
