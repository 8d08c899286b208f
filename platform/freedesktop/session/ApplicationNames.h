// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zamber::freedesktop::session {

/// The name that people know a program by: the `Name` of the desktop entry that is called like its windows' class
/// (freedesktop.org's Desktop Entry standard), or the class itself where there is no such entry.
/// Nothing for an empty class.
std::optional<QString> applicationNameOfClass(const QString& windowClass);

} // namespace zamber::freedesktop::session
