// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Proxy.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace zamber::wayland {

class Connection;

/// The windows of all programs, by wlr-foreign-toplevel-management-unstable-v1; this program's and XWayland's are among
/// them.
class Toplevels final : public QObject {
    Q_OBJECT

public:
    struct Toplevel {
        std::uint64_t handle = 0; ///< no two windows have the same
        QString applicationId;    ///< for a program of X, its window's class
    };

    /// Null where the compositor lacks the protocol.
    static std::unique_ptr<Toplevels> create(Connection& connection);
    ~Toplevels() override;

    /// The window that is in front, as of the last event; nothing on an empty desktop.
    std::optional<Toplevel> active() const;
    bool isOpen(std::uint64_t handle) const;

    /// Asks the compositor to bring the window to the front. Does nothing when the window has gone.
    void activate(std::uint64_t handle);

Q_SIGNALS:
    /// Another window has come to the front, or the window in front has gone.
    void activeChanged();

private:
    struct Window;

    Toplevels(Connection& connection, zwlr_foreign_toplevel_manager_v1* manager);
    void add(zwlr_foreign_toplevel_handle_v1* window);

    Connection& m_connection;
    Proxy<zwlr_foreign_toplevel_manager_v1> m_manager;
    std::vector<std::unique_ptr<Window>> m_windows;
    std::uint64_t m_lastHandle = 0;
};

} // namespace zamber::wayland
