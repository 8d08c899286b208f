// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <cstdint>
#include <expected>
#include <functional>
#include <optional>

namespace zamber {

/// An application that was seen running.
///
/// The handle is the adapter's own and never given out twice, so an application that has gone is never mistaken
/// for one that came later, though process and window numbers are used again.
struct RunningApplication {
    std::uint64_t handle = 0;
    std::int64_t processId = 0;
    std::optional<QString> localizedName;

    friend bool operator==(const RunningApplication& a, const RunningApplication& b) { return a.handle == b.handle; }
};

/// The other programs of the desktop session.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Starts the application that lies there as a process of its own, also while another of it runs. Calls back once,
    /// from the main loop: with an error for people, or nothing when it has started.
    using Started = std::function<void(const std::optional<QString>& error)>;
    virtual void openNewInstance(const QString& path, Started done) = 0;

    /// Moves a file to the user's Trash; the error is a sentence for people.
    virtual std::expected<void, QString> moveToTrash(const QString& path) = 0;

    /// The application whose window has the keyboard, this program included; nothing on an empty desktop.
    virtual std::optional<RunningApplication> frontmostApplication() = 0;

    /// Asks for that application to come to the front. Nothing happens when it has gone.
    virtual void activate(const RunningApplication& application) = 0;

    /// Opens the address with the program that the user has chosen for its kind. Returns at once.
    virtual void open(const QUrl& address) = 0;
};

} // namespace zamber
