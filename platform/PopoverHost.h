// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Anchor.h"
#include "platform/StatusItem.h"

#include <QSize>

#include <functional>

class QWidget;

namespace zamber {

/// The side of the anchor on which a popover appears, where there is room. MinY is below a menu bar.
enum class PopoverEdge { MinY, MaxY };

enum class PopoverAppearance { System, Light, Dark };

/// The one transient window that hangs from the status item. It closes by itself when the user presses a button
/// outside it or another program comes to the front.
class PopoverHost {
public:
    virtual ~PopoverHost() = default;

    /// Makes the widget to show, which stays its maker's.
    using ContentMaker = std::function<QWidget*()>;

    /// What to show. A host that lays a material of the desktop's behind the content makes it translucent
    /// (Qt::WA_TranslucentBackground); the content then leaves it through. It is made once: when the program has
    /// started and nothing else is waiting, or before if it has to be shown then.
    virtual void setContent(ContentMaker makeContent) = 0;

    /// The content's size in points; takes effect at once, also while the popover is shown.
    virtual void setContentSize(QSize points) = 0;

    /// Light or dark, or as the desktop has it; takes effect at once.
    virtual void setAppearance(PopoverAppearance appearance) = 0;

    /// Shows the popover with the keyboard focus, always whole inside the work area of the anchor's screen. Shown
    /// already, it moves to the anchor and is brought to the front.
    virtual void show(const Anchor& anchor, PopoverEdge preferredEdge) = 0;

    /// Closes the popover; nothing happens when it is closed.
    virtual void performClose() = 0;

    virtual bool isShown() const = 0;

    /// Whether what is translucent in a window is blended with what lies behind it, at this moment.
    virtual bool isComposited() const { return true; }

    /// Shows a menu of the desktop's own at that place of the screen, which leaves a transient popover as it is, and
    /// runs the action of the line that was chosen. False where there is none: then the content draws its own.
    virtual bool showMenu(const QList<MenuItem>& menu, QPoint screenPosition) = 0;
};

} // namespace zamber
