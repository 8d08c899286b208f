// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace zamber {

/// The running program as the desktop sees it.
class Application {
public:
    virtual ~Application() = default;

    /// No Dock icon, no taskbar entry, no menu bar: the program lives in the status area alone.
    virtual void setAccessoryPolicy() = 0;

    /// Brings the program's window to the front, whatever other program is active.
    virtual void activate() = 0;

    /// Ends the event loop, and with it the process. Nothing is saved on the way.
    virtual void terminate() = 0;

    /// Sends an action by its name, which ends in a colon, to the part of the program that answers to it. False when
    /// there is none.
    virtual bool sendAction(const QString& name) = 0;

    /// Tells the parts of the program that observe notifications of that name; there may be none.
    virtual void postNotification(const QString& name) = 0;

    /// Called when the user starts the program while it runs: there is one a session, and it is asked to show itself.
    virtual void setShowRequestedHandler(std::function<void()> handler) = 0;
};

} // namespace zamber
