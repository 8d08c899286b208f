// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"

#include <QtGui/qwindowdefs.h>

#include <functional>
#include <map>

namespace zamber::freedesktop {

/// The Qt application as an accessory: it lives on when its last window closes.
class QtApplication final : public Application {
public:
    /// `activateWindow` asks the window manager to bring one of our windows to the front.
    explicit QtApplication(std::function<void(WId)> activateWindow);

    /// Called when the program was started another time: the show-requested handler runs.
    void requestShow() const;

    /// Has the responder answer to the action of that name from now on; the newest one of a name counts.
    void setResponder(const QString& action, std::function<void()> responder);

    /// Has the observer hear of the notifications of that name from now on.
    void addObserver(const QString& notification, std::function<void()> observer);

    void setAccessoryPolicy() override;
    void activate() override;
    void terminate() override;
    bool sendAction(const QString& name) override;
    void postNotification(const QString& name) override;
    void setShowRequestedHandler(std::function<void()> handler) override;

private:
    std::function<void(WId)> m_activateWindow;
    std::function<void()> m_showRequested;
    std::map<QString, std::function<void()>> m_responders;
    std::multimap<QString, std::function<void()>> m_observers;
};

} // namespace zamber::freedesktop
