// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Desktop.h"

#include <QString>
#include <QtGui/qwindowdefs.h>

#include <functional>

namespace zamber::freedesktop::desktop {

/// A desktop whose adapters are there and work.
class FreedesktopDesktop {
public:
    virtual ~FreedesktopDesktop() = default;

    virtual Desktop ports() = 0;

    /// Has the responder answer to the action of that name.
    virtual void setResponder(const QString& action, std::function<void()> responder) = 0;

    /// Asks for a window of ours to be brought to the front, with the keyboard.
    virtual void bringToFront(WId window) = 0;
};

} // namespace zamber::freedesktop::desktop
