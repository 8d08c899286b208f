// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopoverHost.h"
#include "platform/freedesktop/popover/PopoverFrame.h"
#include "platform/freedesktop/popover/WindowSystem.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <functional>
#include <optional>
#include <utility>

namespace zamber {
class Appearance;
}

namespace zamber::freedesktop::popover {

/// The popover as a tool window of the program. It is created at once and only hidden and shown after that.
class PopoverWindow final : public QObject, public PopoverHost {
    Q_OBJECT

public:
    /// Whether a press of the button at the place (points), which is outside the popover, leaves it open.
    using PressFilter = std::function<bool(Qt::MouseButton button, QPoint place)>;

    /// Both outlive this object.
    PopoverWindow(const Appearance& appearance, WindowSystem& windowSystem);

    void setPressFilter(PressFilter filter) { m_pressFilter = std::move(filter); }

    void setContent(ContentMaker makeContent) override;
    void setContentSize(QSize points) override;
    void setAppearance(PopoverAppearance appearance) override;
    void show(const Anchor& anchor, PopoverEdge preferredEdge) override;
    void performClose() override;
    bool isShown() const override;
    bool isComposited() const override { return m_windowSystem.isComposited(); }
    bool showMenu(const QList<MenuItem>&, QPoint) override { return false; } // a menu of Qt's is one here

    /// To be called at each press on the screen (points), in whatever program: one outside the popover closes it.
    /// Presses in windows of this program need not be reported.
    void press(Qt::MouseButton button, QPoint place);

    /// Where the visible popover lies on the screen, without its shadow.
    QRect frameRectangle() const { return m_frame.contentGeometry(); }

signals:
    void shown();
    void closed();
    /// Another program's window has come to the front, and the popover is about to close for that.
    void abandoned();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeContentUnlessMade();
    void rehearse();
    bool isInside(QPoint place) const;
    void place();
    void applyShape();
    void applyColorScheme();
    void closeUnlessOursIsActive();

    const Appearance& m_systemAppearance;
    WindowSystem& m_windowSystem;
    PressFilter m_pressFilter;
    PopoverFrame m_frame;
    QTimer m_look;              ///< at who has the focus, after it was told to be lost
    ContentMaker m_makeContent; ///< until it is made
    QSize m_contentSize{440, 420};
    PopoverAppearance m_appearance = PopoverAppearance::System;
    std::optional<Anchor> m_anchor;
    PopoverEdge m_preferredEdge = PopoverEdge::MinY;
};

} // namespace zamber::freedesktop::popover
