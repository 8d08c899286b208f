// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Desktop.h"

#include <QtGui/qwindowdefs.h>

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace zamber::x11 {

/// The adapters for an X11 desktop, made in the order in which they need each other. The application object comes
/// before them and goes after them.
class X11Desktop final {
public:
    /// Made first and ended before the application's loop is entered; there is nothing to be held here.
    struct StartUp {};

    /// Comes before the application object, which would end the process where there is no X server. The errors are
    /// sentences for people.
    static std::expected<void, std::string> prepare();

    /// Null when the program runs already and has been asked to show itself.
    static std::expected<std::unique_ptr<X11Desktop>, std::string> create();

    /// Where this user's history is kept.
    static std::filesystem::path historyFile();

    ~X11Desktop();

    Desktop ports();

    /// Has the responder answer to the action of that name.
    void setResponder(const QString& action, std::function<void()> responder);

    /// Asks the window manager to bring a window of ours to the front, with the keyboard.
    void bringToFront(WId window);

private:
    struct Adapters;

    explicit X11Desktop(std::unique_ptr<Adapters> adapters);

    std::unique_ptr<Adapters> m_adapters;
};

} // namespace zamber::x11
