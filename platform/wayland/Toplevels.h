// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

namespace zamber::wayland {

class Connection;

/// The windows of all programs; this program's and XWayland's are among them.
class Toplevels : public QObject {
    Q_OBJECT

public:
    struct Toplevel {
        std::uint64_t handle = 0;   ///< no two windows have the same
        QString applicationId;      ///< for a program of X, its window's class
        std::int64_t processId = 0; ///< 0 where the compositor does not tell

        /// Where it is, with its frame, in points on the desktop; nothing where the compositor does not tell.
        std::optional<QRect> geometry = {};
    };

    /// By wlr-foreign-toplevel-management-unstable-v1, else by plasma-window-management; null where the compositor
    /// offers neither to this program.
    static std::unique_ptr<Toplevels> create(Connection& connection);

    /// The window that is in front, as of the last event; nothing on an empty desktop.
    virtual std::optional<Toplevel> active() const = 0;
    virtual bool isOpen(std::uint64_t handle) const = 0;

    /// Asks the compositor to bring the window to the front. Does nothing when the window has gone.
    virtual void activate(std::uint64_t handle) = 0;

    /// Waits until all has been heard that the compositor has told so far.
    virtual void catchUp() = 0;

Q_SIGNALS:
    /// Another window has come to the front, or the window in front has gone.
    void activeChanged();
};

} // namespace zamber::wayland
