// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/desktop/CommonAdapters.h"
#include "platform/freedesktop/desktop/FreedesktopDesktop.h"

#include <expected>
#include <memory>
#include <string>

namespace zamber::x11 {

/// The adapters for an X11 desktop, made in the order in which they need each other. The application object comes
/// before them and goes after them.
class X11Desktop final : public freedesktop::desktop::FreedesktopDesktop {
public:
    /// Comes before the application object, which would end the process where there is no X server. The errors are
    /// sentences for people.
    static std::expected<void, std::string> prepare();

    static std::expected<std::unique_ptr<X11Desktop>, std::string> create(freedesktop::desktop::Claim claim);

    ~X11Desktop() override;

    Desktop ports() override;
    void setResponder(const QString& action, std::function<void()> responder) override;
    void bringToFront(WId window) override;

private:
    struct Adapters;

    explicit X11Desktop(std::unique_ptr<Adapters> adapters);

    std::unique_ptr<Adapters> m_adapters;
};

} // namespace zamber::x11
