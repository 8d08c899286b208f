// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace zamber::macos {

/// The user's folder for what programs keep. There is always one; without, the program ends.
std::filesystem::path applicationSupportFolder();

} // namespace zamber::macos
