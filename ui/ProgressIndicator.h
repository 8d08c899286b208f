// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QTimer>
#include <QWidget>

namespace zamber::ui {

/// A small wheel that turns while it is shown: work is under way, of unknown length.
class ProgressIndicator final : public QWidget {
    Q_OBJECT

public:
    explicit ProgressIndicator(const QString& name, QWidget* parent = nullptr);

    void setColors(const Palette& palette);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    Palette m_palette;
    QTimer m_turning;
    int m_step = 0;
};

} // namespace zamber::ui
