// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace zamber::freedesktop::tray {

/// The icon in a tray that takes in windows of other programs. Trays that come late, change or leave are followed for
/// as long as the icon is shown.
class EmbeddedIcon : public QObject {
    Q_OBJECT

public:
    /// The icon as large as that each way, in pixels.
    using Drawing = std::function<QImage(int pixels)>;

    /// To be called while the icon is not shown. The title is for panels that list their icons.
    virtual void show(Drawing drawing, const QString& title) = 0;

    virtual void hide() = 0;

    /// Where the icon lies on the screen, in points, once a tray has taken it in; nothing while none has.
    virtual std::optional<QRect> rectangle() const = 0;

Q_SIGNALS:
    /// The button has been pressed over the icon and let go over it.
    void clicked(Qt::MouseButton button);

    /// The pointer has moved over the icon, and has left it or pressed a button.
    void pointerMoved();
    void pointerLeft();
};

} // namespace zamber::freedesktop::tray
