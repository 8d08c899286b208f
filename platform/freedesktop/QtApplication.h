// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"

#include <QtGui/qwindowdefs.h>

#include <functional>

namespace zamber {

/// The Qt application as an accessory: it lives on when its last window closes.
class QtApplication final : public Application {
public:
    /// `activateWindow` asks the window manager to bring one of our windows to the front.
    explicit QtApplication(std::function<void(WId)> activateWindow);

    /// Another start asks for the program.
    void requestShow() const;

    void setAccessoryPolicy() override;
    void activate() override;
    void terminate() override;
    void setShowRequestedHandler(std::function<void()> handler) override;

private:
    std::function<void(WId)> m_activateWindow;
    std::function<void()> m_showRequested;
};

} // namespace zamber
