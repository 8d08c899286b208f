// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/desktop/FreedesktopDesktop.h"

#include <expected>
#include <filesystem>
#include <memory>
#include <string>

namespace zamber::app {

/// The desktop of the session that the program is started in: Wayland's adapters where the compositor has what they
/// ask, X11's otherwise.
struct SessionDesktop {
    /// Made first and ended before the application's loop is entered; there is nothing to be held here.
    struct StartUp {};

    /// Comes before the application object, which would end the process where there is nothing to draw on. The errors
    /// are sentences for people.
    static std::expected<void, std::string> prepare();

    /// Null when the program runs already and has been asked to show itself.
    static std::expected<std::unique_ptr<freedesktop::desktop::FreedesktopDesktop>, std::string> create();

    /// Where this user's history is kept.
    static std::filesystem::path historyFile();
};

} // namespace zamber::app
