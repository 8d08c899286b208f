// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>

namespace zamber::ui {

/// A short text on a rounded ground.
class Badge : public QWidget {
    Q_OBJECT

public:
    void setText(const QString& text);
    const QString& text() const { return m_text; }
    void setColors(const QColor& text, const QColor& ground);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    enum class Corners { Capsule, Continuous };

    /// The radius (points) is that of continuous corners.
    Badge(const QFont& font, QSize padding, Corners corners, double radius, QWidget* parent);

    void paintEvent(QPaintEvent* event) override;

private:
    QSize m_padding;
    Corners m_corners;
    double m_radius;
    QString m_text;
    QColor m_textColor;
    QColor m_groundColor;
};

/// A count in a capsule.
class CapsuleBadge final : public Badge {
    Q_OBJECT

public:
    explicit CapsuleBadge(QWidget* parent = nullptr);
};

/// The picture of a key on the keyboard.
class KeyCap final : public Badge {
    Q_OBJECT

public:
    explicit KeyCap(const QString& key, QWidget* parent = nullptr);
};

} // namespace zamber::ui
