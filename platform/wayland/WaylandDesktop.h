// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/desktop/CommonAdapters.h"
#include "platform/freedesktop/desktop/FreedesktopDesktop.h"

#include <expected>
#include <memory>
#include <string>

namespace zamber::wayland {

class Connection;

/// The adapters for a compositor that lets programs control the clipboard. Windows are Wayland's own where Qt's plug-in
/// for it is installed, else XWayland's. The application object comes before the adapters and goes after them.
class WaylandDesktop final : public freedesktop::desktop::FreedesktopDesktop {
public:
    /// Comes before the application object. True, and Qt will draw on Wayland, where the compositor of the environment
    /// lets programs control the clipboard and place windows (sway), and Qt's plug-in is there. The user's
    /// QT_QPA_PLATFORM=xcb is heeded.
    static bool prepareWindows();

    /// A connection to the compositor of the environment; null where there is none, or none with data control.
    static std::unique_ptr<Connection> reachCompositor();

    /// The error is a sentence for people.
    static std::expected<std::unique_ptr<WaylandDesktop>, std::string> create(freedesktop::desktop::Claim claim,
                                                                              std::unique_ptr<Connection> compositor);

    ~WaylandDesktop() override;

    Desktop ports() override;
    void setResponder(const QString& action, std::function<void()> responder) override;
    void bringToFront(WId window) override;

private:
    struct Adapters;

    explicit WaylandDesktop(std::unique_ptr<Adapters> adapters);

    std::unique_ptr<Adapters> m_adapters;
};

} // namespace zamber::wayland
