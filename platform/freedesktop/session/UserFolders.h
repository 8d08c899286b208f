// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace zamber::freedesktop::session {

/// The folder for this user's data files: `$XDG_DATA_HOME`, or `~/.local/share` where that variable is unset, empty or
/// a relative path, which the XDG Base Directory standard has programs ignore.
std::filesystem::path userDataFolder();

/// The folder for what programs remember of this machine and session, `$XDG_STATE_HOME` or `~/.local/state`, by the
/// same rules.
std::filesystem::path userStateFolder();

} // namespace zamber::freedesktop::session
