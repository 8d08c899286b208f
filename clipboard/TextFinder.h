// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace zamber::clipboard {

/// Where the searched text, not empty, comes next from there on, byte for byte; the text's size when it does not.
/// Nearly as fast as memory is read, and not much slower where parts of it are everywhere.
std::size_t findText(std::string_view text, std::string_view searched, std::size_t from);

} // namespace zamber::clipboard
