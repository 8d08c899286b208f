// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QWidget>

class QAbstractScrollArea;
class QScrollBar;

namespace zamber::ui {

/// A thin scroll bar over the right edge of a scroll area, which takes no room from it and is shown only while the
/// content is larger than the area. The wheel and the keyboard stay the area's own.
class OverlayScrollBar final : public QWidget {
    Q_OBJECT

public:
    /// Takes the place of the area's vertical scroll bar. The area owns it.
    explicit OverlayScrollBar(QAbstractScrollArea* area);

    void setColors(const Palette& palette);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void adjustToArea();
    QRectF thumb() const;

    QAbstractScrollArea* m_area;
    QScrollBar* m_hidden; ///< the area's own
    Palette m_palette;
    double m_grabbedAt = 0; ///< from the thumb's top, in points
    bool m_isDragging = false;
};

} // namespace zamber::ui
