// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace zamber::text {

/// Cuts a UTF-8 text into pieces that can be decomposed canonically one by one, so that no text is ever held
/// decomposed as a whole. A run of combining marks stays in one piece, however long it is.
class NormalPieces {
public:
    static constexpr std::size_t SHORT_PIECE_BYTES = 256;

    /// A piece with more than ASCII in it has about so many bytes, more where a run of marks does not end before.
    explicit NormalPieces(std::string_view text, std::size_t usualPieceBytes = SHORT_PIECE_BYTES)
        : m_rest(text)
        , m_usualPieceBytes(usualPieceBytes) {}

    /// The next piece, at least one code point, or an empty one at the end. ASCII at the start is given out as long
    /// as it goes, up to its last character, which a combining mark may follow.
    std::string_view next();
    /// Whether the piece is of ASCII alone, and so its own decomposition.
    static bool isAscii(std::string_view piece);

private:
    std::string_view m_rest;
    std::size_t m_usualPieceBytes;
};

/// The canonical decomposition (NFD). The time it takes grows with the length of the piece, and hardly faster.
icu::UnicodeString decomposed(const icu::UnicodeString& piece);

/// Are the two texts canonically equivalent? Looks no further than their first difference.
bool canonicallyEqual(std::string_view left, std::string_view right);

/// Equal for canonically equivalent texts. Looks at so many bytes of the decomposed text at most. Not the same in the
/// next run.
std::uint64_t canonicalHash(std::string_view text, std::size_t limit = std::numeric_limits<std::size_t>::max());

/// A hash of bytes as they are, going on from another one. Not the same in the next run.
std::uint64_t byteHash(std::string_view bytes, std::uint64_t seed = 0);

} // namespace zamber::text
