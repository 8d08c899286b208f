// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopShortcut.h"

#include <QStringList>

#include <memory>

namespace zamber::freedesktop::session {

/// The shortcuts of the desktop with those names, as $XDG_CURRENT_DESKTOP has them; null for a desktop whose shortcuts
/// are not known. `executable` is the absolute path of the program that is running.
std::unique_ptr<DesktopShortcut> desktopShortcutOf(const QStringList& currentDesktop, const QString& executable);

/// A path as a shell takes it for one word.
QString shellWord(const QString& path);

} // namespace zamber::freedesktop::session
