// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace zamber::text {

/// How a character that has both forms is shown: as a letter in the text's colour, or as a coloured picture.
enum class EmojiForm { Text, Picture };

/// Neighbouring characters of the same form; places and lengths in UTF-16 units.
struct EmojiRun {
    std::size_t start = 0;
    std::size_t length = 0;
    EmojiForm form = EmojiForm::Text;

    bool operator==(const EmojiRun&) const = default;
};

/// The parts of a text that emoji fonts have to do with, in order: by each character's own default, by the variation
/// selector behind it, and as members of sequences (flags, keycaps, skin tones, joined pictures). What lies between
/// the runs is ordinary text; digits are, unless they are on a keycap.
std::vector<EmojiRun> emojiRuns(std::u16string_view text);

} // namespace zamber::text
