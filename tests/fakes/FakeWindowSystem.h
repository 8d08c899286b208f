// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/popover/WindowSystem.h"

#include <QList>

#include <optional>

namespace zamber {

/// A windowing system whose compositor comes and goes as the test says.
class FakeWindowSystem final : public freedesktop::popover::WindowSystem {
public:
    bool isComposited() const override { return composited; }
    QRect workArea(const QRect& monitor) const override { return monitor; }
    void setShadow(WId /*window*/, const QMargins& shadow) override { shadows.append(shadow); }
    bool hasKeyboardFocus() const override { return hasFocus; }
    void presentPopover(WId window) override { presented.append(window); }
    void bringToFront(WId /*window*/) override {}

    void setComposited(bool isComposited) {
        composited = isComposited;
        Q_EMIT compositedChanged();
    }

    void loseFocus() { Q_EMIT focusLost(); }
    void requestClose() { Q_EMIT closeRequested(); }

    bool composited = true;
    bool hasFocus = false;
    QList<QMargins> shadows; ///< as they were told, the newest last
    QList<WId> presented;
};

} // namespace zamber
