// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopoverHost.h"

namespace zamber::macos {

/// The system's transient popover around the view of a Qt widget. Anchors are views, by their handles.
class MacPopover final : public PopoverHost {
public:
    MacPopover();
    ~MacPopover() override;
    MacPopover(const MacPopover&) = delete;
    MacPopover& operator=(const MacPopover&) = delete;

    /// Makes the content at once, since a popover needs its view before it can be shown.
    void setContent(ContentMaker makeContent) override;
    void setContentSize(QSize points) override;
    void setAppearance(PopoverAppearance appearance) override;
    void show(const Anchor& anchor, PopoverEdge preferredEdge) override;
    void performClose() override;
    bool isShown() const override;
    bool showMenu(const QList<MenuItem>& menu, QPoint screenPosition) override;

private:
    QWidget* m_content = nullptr;
    QSize m_contentSize; ///< invalid until it is set
    void* m_popover;     ///< an NSPopover, retained
    void* m_delegate;    ///< the popover's delegate, retained
};

} // namespace zamber::macos
