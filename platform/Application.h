// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

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
};

} // namespace zamber
