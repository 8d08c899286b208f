// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopoverHost.h"
#include "platform/freedesktop/popover/PopoverFrame.h"

#include <QObject>
#include <QtGui/qwindowdefs.h>

#include <functional>
#include <optional>

namespace zamber {
class Appearance;
}

namespace zamber::freedesktop::popover {}

namespace zamber::freedesktop::popover {}

namespace zamber::freedesktop::popover {

/// The popover as a tool window of the program. It is created at once and only hidden and shown after that.
class PopoverWindow final : public QObject, public PopoverHost {
    Q_OBJECT

public:
    /// What only the windowing system can tell and do.
    struct WindowSystem {
        std::function<bool()> isComposited;
        /// Asks the window manager for the keyboard focus, beyond what Qt does.
        std::function<void(WId)> activateWindow;
        /// What panels leave of a monitor, in pixels. Where there are several monitors Qt does not know; without this
        /// function the popover may lie over a panel there.
        std::function<QRect(const QRect&)> workArea = {};
        /// Told of a press, at that place on the screen, in a window of ours that is not the popover's; without this
        /// function it closes the popover.
        std::function<void(QPoint)> pressedElsewhere = {};
    };

    PopoverWindow(const Appearance& appearance, WindowSystem windowSystem);

    void setContent(ContentMaker makeContent) override;
    void setContentSize(QSize points) override;
    void setAppearance(PopoverAppearance appearance) override;
    void show(const Anchor& anchor, PopoverEdge preferredEdge) override;
    void performClose() override;
    bool isShown() const override;

    /// A mouse button was pressed there on the screen (points), in whatever program: outside the popover it closes it.
    void pressedOutside(QPoint position);

    /// Where the visible popover lies on the screen, without its shadow.
    QRect frameRectangle() const { return m_frame.contentGeometry(); }

signals:
    void shown();
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeContentUnlessMade();
    void place();
    QRect workAreaOf(const QScreen& screen) const;
    void applyLook();
    void closeUnlessOursIsActive();

    const Appearance& m_systemAppearance;
    const WindowSystem m_windowSystem;
    PopoverFrame m_frame;
    ContentMaker m_makeContent; ///< until it is made
    QSize m_contentSize{440, 420};
    PopoverAppearance m_appearance = PopoverAppearance::System;
    std::optional<Anchor> m_anchor;
    PopoverEdge m_preferredEdge = PopoverEdge::MinY;
};

} // namespace zamber::freedesktop::popover
