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
    /// The pool for objects that are autoreleased before the application's loop runs; the loop has a pool for each
    /// turn. To be made before anything else.
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

    /// The file of this user's history.
    static std::filesystem::path historyFile();

    ~MacDesktop();

    Desktop ports();

    /// Makes the responder respond to the action of that name.
    static void setResponder(const QString& action, std::function<void()> responder);

    /// Brings a window of ours to the front and gives it the keyboard focus, in the user's current space.
    static void bringToFront(WId window);

private:
    struct Adapters;

    explicit MacDesktop(std::unique_ptr<Adapters> adapters);

    std::unique_ptr<Adapters> m_adapters;
};

} // namespace zamber::macos
