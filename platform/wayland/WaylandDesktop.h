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

/// The adapters for a compositor that lets programs control the clipboard, with windows that are XWayland's. The
/// application object comes before them and goes after them.
class WaylandDesktop final : public freedesktop::desktop::FreedesktopDesktop {
public:
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
