// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <expected>

namespace zamber::freedesktop::session {

/// Moves a file or folder to the user's trash of its file system.
std::expected<void, QString> moveFileToTrash(const QString& path);

} // namespace zamber::freedesktop::session
