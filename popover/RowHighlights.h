// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QUuid>

namespace zamber::popover {

enum class Motion { Animated, Immediate };

/// How far each row's highlight has faded in. Runs a timer only while something moves.
class RowHighlights final : public QObject {
    Q_OBJECT

public:
    RowHighlights();

    /// The rows that are to be highlighted from now on; the others fade out.
    void setHighlighted(const QSet<QUuid>& rows, Motion motion);

    /// From 0 (not highlighted) to 1, eased in and out.
    double value(const QUuid& row) const;

    /// The rows that are highlighted at least a little.
    QList<QUuid> lit() const { return m_progress.keys(); }

signals:
    void advanced();

private:
    void advance();

    QSet<QUuid> m_highlighted;
    QHash<QUuid, double> m_progress;
    QTimer m_frames;
    QElapsedTimer m_sinceFrame;
};

} // namespace zamber::popover
