// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>
#include <string_view>

namespace zamber::text {

/// Some user-perceived characters (extended grapheme clusters) at the start of a text: how many, and in how many
/// bytes.
struct CharacterRun {
    std::size_t count = 0;
    std::size_t bytes = 0;
};

/// Counts the characters of a UTF-8 text, at most `limit` of them. Looks no further into the text than it counts.
CharacterRun countCharacters(std::string_view text, std::size_t limit = std::numeric_limits<std::size_t>::max());

/// Does a character end at this byte offset?
bool isCharacterBoundary(std::string_view text, std::size_t at);

/// The text without spaces, tabs and line breaks of any kind at its ends.
std::string_view trimmed(std::string_view text);

/// The number of lines that hold more than spaces and tabs.
std::size_t countLines(std::string_view text);

} // namespace zamber::text
