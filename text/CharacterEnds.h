// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace zamber::text {

/// Does a user-perceived character of a decomposed text end at this byte offset, above 0? Only what may be part of
/// the character before is looked for: marks, joiners and what they join, and the letters of a Hangul syllable. Takes
/// the same time for any text.
bool endsCharacter(std::string_view text, std::size_t end);

/// May a user-perceived character go on with this one, as with an accent, a skin tone or a joiner?
bool extendsCharacter(char32_t c);

/// May the character hang together with the one that follows it, depending on what stands before?
bool mayJoinWhatFollows(char32_t c);

} // namespace zamber::text
