// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace zamber::clipboard {

/// A character of a text takes no more bytes than this in a JSON string.
inline constexpr std::size_t LONGEST_JSON_ESCAPE_BYTES = 6;

/// How many bytes the text (UTF-8) takes in a JSON string, without the quotes.
std::size_t jsonStringLength(std::string_view text);

/// Writes the text (UTF-8, or a part of it) as it stands in a JSON string and returns the end of what it has written.
char* writeJsonString(char* to, std::string_view text);

} // namespace zamber::clipboard
