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

/// The windows of all programs, ours and XWayland's included, as wlr-foreign-toplevel-management-unstable-v1 tells.
class Toplevels final : public QObject {
    Q_OBJECT

public:
    struct Toplevel {
        std::uint64_t handle = 0; ///< never given out twice
        QString applicationId;    ///< of a program of X, the class of its window
    };

    /// Null where the compositor does not tell.
    static std::unique_ptr<Toplevels> create(Connection& connection);
    ~Toplevels() override;

    /// The window that is in front, as of the last event; nothing on an empty desktop.
    std::optional<Toplevel> active() const;
    bool isOpen(std::uint64_t handle) const;

    /// Asks for that window to come to the front. Nothing happens when it has gone.
    void activate(std::uint64_t handle);

Q_SIGNALS:
    /// Another window is in front, or the one that was has gone.
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
