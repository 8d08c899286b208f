// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <QImage>
#include <QRasterWindow>

#include <functional>

namespace zamber::x11 {

/// A window of Qt's, for a tray to take in, with an icon in its middle. The tray shows it; `show` is not to be called.
class IconWindow final : public QRasterWindow {
    Q_OBJECT

public:
    /// What is seen around the icon: the tray blends the window with its ground, or the window has a copy of the
    /// ground.
    enum class Ground { Blended, Copied };
    /// The icon as large as that each way, in pixels.
    using Drawing = std::function<QImage(int pixels)>;

    /// It is known to the X server afterwards. The connection outlives it.
    IconWindow(const Connection& connection, Ground ground, Drawing drawing, const QString& title);

    xcb_window_t id() const { return m_window; }

    /// To be called once the tray has taken it in.
    void seeGround() const;

Q_SIGNALS:
    /// The button has been pressed over the icon and let go over it.
    void clicked(Qt::MouseButton button);

    /// The pointer has moved over the icon, and has left it or pressed a button.
    void pointerMoved();
    void pointerLeft();

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void describe() const;
    QImage ground() const;

    const Connection& m_connection;
    Ground m_ground;
    Drawing m_drawing;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    Qt::MouseButton m_pressedButton = Qt::NoButton; ///< the one that went down on the icon
};

} // namespace zamber::x11
