// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QTimer>
#include <QUuid>

namespace zamber::popover {

class HistoryRows;

enum class Motion { Animated, Immediate };

/// Fades the highlights of rows in and out. Runs a timer only while something moves.
class RowHighlights final : public QObject {
    Q_OBJECT

public:
    /// The rows outlive this object.
    explicit RowHighlights(HistoryRows& rows);

    /// The rows that are to be highlighted from now on; the others fade out.
    void setHighlighted(const QList<QUuid>& highlighted, Motion motion);

    bool isMoving() const { return m_frames.isActive(); }

signals:
    /// The highlights of these rows have begun, ended or faded by a step.
    void advanced(const QList<QUuid>& rows);
    /// All highlights have reached their end.
    void settled();

private:
    void advance();
    void move(double step);

    HistoryRows& m_rows;
    QTimer m_frames;
    QElapsedTimer m_sinceFrame;
};

} // namespace zamber::popover
