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

class QString;

namespace zamber::macos {

/// The adapters for macOS. The application object comes before them and goes after them.
class MacDesktop final {
public:
    /// Holds what the system gives away until the application's loop is entered, which then has a pool a turn. The
    /// first thing to be made.
    class StartUp {
    public:
        StartUp();
        ~StartUp();
        StartUp(const StartUp&) = delete;
        StartUp& operator=(const StartUp&) = delete;

    private:
        void* m_pool;
    };

    /// Comes before the application object. Neither of the two fails here.
    static std::expected<void, std::string> prepare();
    static std::expected<std::unique_ptr<MacDesktop>, std::string> create();

    /// Where this user's history is kept.
    static std::filesystem::path historyFile();

    ~MacDesktop();

    Desktop ports();

    /// Has the responder answer to the action of that name.
    static void setResponder(const QString& action, std::function<void()> responder);

    /// Brings a window of ours to the front, with the keyboard, in the space where the user is.
    static void bringToFront(WId window);

private:
    struct Adapters;

    explicit MacDesktop(std::unique_ptr<Adapters> adapters);

    std::unique_ptr<Adapters> m_adapters;
};

} // namespace zamber::macos
