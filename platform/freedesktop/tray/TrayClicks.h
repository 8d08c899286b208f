// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SingleShotTimer.h"
#include "platform/freedesktop/tray/PointerButtons.h"

#include <QObject>
#include <QPoint>
#include <QRect>

#include <functional>
#include <optional>
#include <utility>

namespace zamber::freedesktop::popover {
class PopoverWindow;
}

namespace zamber::freedesktop::tray {

/// Tells a click on the status item from a press that closes the popover.
///
/// The popover closes at a press outside it; the status item toggles the popover at a click, which is a press and a
/// release. So each press on the icon could be both, and the popover would close and open again. The answer depends on
/// who draws the icon:
/// - An embedded icon (XEmbed) is a window of ours: its place is known, and a left press on it is left to the click.
/// - A host on the session bus (StatusNotifierItem) draws the icon in a window of its own, and tells of the click when
///   the button has come up. The press has closed the popover by then; the click that it belongs to does nothing more.
/// - On Wayland nobody tells of presses elsewhere. A host whose panel takes the focus at the press makes the popover
///   close like that of any other window; a click that is reported soon after that is the same one.
class TrayClicks final : public QObject {
    Q_OBJECT

public:
    /// The icon's rectangle in points; nothing while no embedded icon is shown.
    using EmbeddedIcon = std::function<std::optional<QRect>()>;

    /// All three outlive this object.
    TrayClicks(popover::PopoverWindow& popover, PointerButtons& buttons, Scheduler& scheduler);
    ~TrayClicks() override;

    void setEmbeddedIcon(EmbeddedIcon embeddedIcon) { m_embeddedIcon = std::move(embeddedIcon); }

    /// To be asked once for each left click on the icon, with the pointer's place where it is known: whether the click
    /// is still to be acted on. It is not when its own press has closed the popover.
    bool isToBeActedOn(std::optional<QPoint> pointer);

    /// To be called before the icon's menu opens: closes the popover, which the press has not closed where no press is
    /// reported.
    void closePopoverForMenu();

private:
    bool isLeftToClick(Qt::MouseButton button, QPoint place) const;
    void handlePress(Qt::MouseButton button, QPoint place);
    void handleRelease();
    void handleClosing();
    void forgetClosingPress();

    popover::PopoverWindow& m_popover;
    PointerButtons& m_buttons;
    EmbeddedIcon m_embeddedIcon;
    std::optional<QPoint> m_closingPress; ///< the latest press, if it has closed the popover and its click may follow
    SingleShotTimer m_expiry;
    SingleShotTimer m_abandonment; ///< runs from when another window has come to the front of the popover
};

} // namespace zamber::freedesktop::tray
