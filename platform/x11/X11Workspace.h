// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "platform/x11/Windows.h"

#include <functional>
#include <map>
#include <optional>

namespace zamber::x11 {

/// Applications are the windows that were seen in front. One is forgotten as soon as its window is destroyed. Windows
/// of Wayland, which the X server does not have, are all one application without a name.
class X11Workspace final : public Workspace {
public:
    /// Gives the name of the program with that window class, for people, where the desktop has one.
    using NameOfClass = std::function<std::optional<QString>(const QString& windowClass)>;

    /// What is in front where no window of the X server is.
    enum class Otherwise { Nothing, WindowOfWayland };

    X11Workspace(Connection& connection, Windows& windows, NameOfClass nameOfClass,
                 Otherwise otherwise = Otherwise::Nothing);

    void openNewInstance(const QString& path, Started done) override;
    std::expected<void, QString> moveToTrash(const QString& path) override;

    std::optional<RunningApplication> frontmostApplication() override;
    void activate(const RunningApplication& application) override;
    void open(const QUrl& address) override;

    /// The application's window, if it still exists.
    std::optional<xcb_window_t> windowOf(const RunningApplication& application) const;

private:
    Connection& m_connection;
    Windows& m_windows;
    NameOfClass m_nameOfClass;
    Otherwise m_otherwise;
    std::map<xcb_window_t, std::uint64_t> m_handles;
    std::uint64_t m_lastHandle = 0;
};

} // namespace zamber::x11
