// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopoverHost.h"

#include <QList>

namespace zamber {

/// A popover without a window: it keeps what it was told.
class FakePopoverHost final : public PopoverHost {
public:
    struct Showing {
        Anchor anchor;
        PopoverEdge edge;
    };

    QWidget* content = nullptr;
    QSize contentSize;
    PopoverAppearance appearance = PopoverAppearance::System;
    QList<Showing> showings;

    void setContent(QWidget* widget) override { content = widget; }
    void setContentSize(QSize points) override { contentSize = points; }
    void setAppearance(PopoverAppearance look) override { appearance = look; }

    void show(const Anchor& anchor, PopoverEdge preferredEdge) override {
        showings.append({anchor, preferredEdge});
        m_isShown = true;
    }

    void performClose() override { m_isShown = false; }
    bool isShown() const override { return m_isShown; }

    /// The user presses a button somewhere else.
    void pressOutside() { m_isShown = false; }

private:
    bool m_isShown = false;
};

} // namespace zamber
