// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QCheckBox>

class QVariantAnimation;

namespace zamber::ui {

enum class Motion { Full, Reduced };

/// A label, and at the far end of the row a switch that slides. To the keyboard and to assistive technology it is a
/// check box.
class Switch final : public QCheckBox {
    Q_OBJECT

public:
    explicit Switch(const QString& label, QWidget* parent = nullptr);

    void setColors(const Palette& palette);
    /// With reduced motion the switch does not slide.
    void setMotion(Motion motion) { m_motion = motion; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override;
    void nextCheckState() override;
    void checkStateSet() override;

private:
    QRectF track() const;
    void slide();

    Palette m_palette;
    Motion m_motion = Motion::Full;
    QVariantAnimation* m_sliding;
    double m_position = 0; ///< of the knob: 0 off, 1 on
};

} // namespace zamber::ui
