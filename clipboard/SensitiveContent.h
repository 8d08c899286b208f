// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zamber::clipboard {

/// Does the text (UTF-8), in lower case, contain one of the marks of passwords, keys and tokens? Generous on purpose:
/// "task-list" holds "sk-".
bool looksSensitive(std::string_view text);

} // namespace zamber::clipboard
