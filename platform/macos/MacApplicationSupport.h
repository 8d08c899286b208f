// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace zamber::macos {

/// The user's folder "Application Support". The program ends if the system names none, which does not happen.
std::filesystem::path applicationSupportFolder();

} // namespace zamber::macos
