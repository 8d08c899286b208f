// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"
#include "ui/Switch.h"

#include <QTimer>
#include <QVariantAnimation>
#include <QWidget>

class QAbstractScrollArea;
class QScrollBar;

namespace zamber::ui {

/// A thin scroll bar over the right edge of a scroll area, which takes no room from it and is there only while there
/// is something to scroll. It fades a while after the last scrolling, and comes back with the next, or under the
/// pointer. The wheel and the keyboard stay the area's own.
class OverlayScrollBar final : public QWidget {
    Q_OBJECT

public:
    /// Takes the place of the area's vertical scroll bar. The area owns it.
    explicit OverlayScrollBar(QAbstractScrollArea* area);

    void setColors(const Palette& palette);
    /// With reduced motion it goes without fading.
    void setMotion(Motion motion) { m_motion = motion; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void adjustToArea();
    void reveal();
    void fade();
    QRectF thumb() const;

    QAbstractScrollArea* m_area;
    QScrollBar* m_hidden; ///< the area's own
    Palette m_palette;
    double m_grabbedAt = 0; ///< from the thumb's top, in points
    bool m_isDragging = false;
    Motion m_motion = Motion::Full;
    QTimer m_rest;
    QVariantAnimation m_fading;
    double m_strength = 1; ///< 0 when it has faded
};

} // namespace zamber::ui
