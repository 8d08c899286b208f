// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace zamber::freedesktop::popover {

enum class FrameShape {
    RoundedWithShadow, ///< needs a compositor: around the content lies translucent room for the shadow
    Square,            ///< the window is the content; nothing in it is translucent
};

enum class ColorScheme { Light, Dark };

/// The popover's window: a content with a border around it, above all other windows and in no task bar.
class PopoverFrame final : public QWidget {
    Q_OBJECT

public:
    PopoverFrame();
    ~PopoverFrame() override;

    void setContent(QWidget* content);
    QWidget* content() const { return m_content; }

    void setShape(FrameShape shape);
    void setColorScheme(ColorScheme colorScheme);

    /// Moves and sizes the window so that its content lies at the rectangle (points, on the screen).
    void setContentGeometry(const QRect& rectangle);
    QRect contentGeometry() const;

    /// How far the window reaches beyond its content (points).
    QMargins shadowMargins() const;

signals:
    void hidden();
    void deactivated();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;

private:
    /// Drawn over the content: cuts its corners round and draws the border.
    class Rim;

    void arrange();
    void paintShadow(QPainter& painter) const;
    void paintRim(QPainter& painter) const;
    void paintCorner(QPainter& painter, const QRect& corner, const QColor& color) const;

    QPointer<QWidget> m_content;
    Rim* m_rim;
    FrameShape m_shape = FrameShape::Square;
    ColorScheme m_colorScheme = ColorScheme::Light;
    mutable QPixmap m_shadowTile;
};

} // namespace zamber::freedesktop::popover
