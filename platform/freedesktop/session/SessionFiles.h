// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <expected>

namespace zamber::freedesktop::session {

// What the desktops share of the workspace, whatever the windowing system.

/// Starts a program as a process of its own, also while another of it runs. The path is an executable file, or a
/// folder with one called AppRun, which is how programs that are folders begin here.
std::expected<void, QString> startNewInstance(const QString& path);

/// Moves a file or folder to the user's trash of its file system.
std::expected<void, QString> moveFileToTrash(const QString& path);

} // namespace zamber::freedesktop::session
