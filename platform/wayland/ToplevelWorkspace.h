// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <optional>

namespace zamber::wayland {

class Toplevels;

/// An application is known by a window of its that was in front, since Wayland tells no process numbers.
class ToplevelWorkspace final : public Workspace {
public:
    /// The name that people know a program by, looked up by the program's id, where the desktop has one.
    using NameOfId = std::function<std::optional<QString>(const QString& applicationId)>;

    ToplevelWorkspace(Toplevels& toplevels, NameOfId nameOfId);

    void openNewInstance(const QString& path, Started done) override;
    std::expected<void, QString> moveToTrash(const QString& path) override;
    std::optional<RunningApplication> frontmostApplication() override;
    void activate(const RunningApplication& application) override;
    void open(const QUrl& address) override;

private:
    Toplevels& m_toplevels;
    NameOfId m_nameOfId;
};

} // namespace zamber::wayland
