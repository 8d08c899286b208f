// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/NormalForm.h"

#include "clipboard/CodePoints.h"

#include <unicode/normalizer2.h>

#include <algorithm>
#include <cstring>

namespace zamber {

namespace {

/// Below this many bytes of ASCII, handing them to ICU with their neighbours costs less than a piece of their own.
constexpr std::size_t SHORTEST_ASCII_PIECE = 64;
constexpr std::size_t USUAL_PIECE = 1024;
/// ICU sorts a run of combining marks in the square of its length.
constexpr std::size_t LONGEST_PIECE = 2048;
constexpr std::size_t LONGEST_ASCII_PIECE = std::size_t{1} << 20;

constexpr std::uint64_t FNV_OFFSET = 14695981039346656037U;
constexpr std::uint64_t FNV_PRIME = 1099511628211U;

const icu::Normalizer2* normalizer() {
    static const icu::Normalizer2* const nfd = [] {
        UErrorCode status = U_ZERO_ERROR;
        return icu::Normalizer2::getNFDInstance(status); // null on failure
    }();
    return nfd;
}

bool startsAnew(char32_t c) {
    return c < 0x80 || normalizer() == nullptr || normalizer()->hasBoundaryBefore(static_cast<UChar32>(c)) != 0;
}

std::size_t asciiLength(std::string_view text) {
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof word <= text.size(); at += sizeof word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        if ((word & 0x8080808080808080U) != 0) {
            break;
        }
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80U) {
        ++at;
    }
    return at;
}

/// The decomposition of a text, a piece at a time, in UTF-8.
class DecomposedPieces {
public:
    explicit DecomposedPieces(std::string_view text)
        : m_pieces(text) {}

    std::string_view next() {
        const auto piece = m_pieces.next();
        if (NormalPieces::isAscii(piece)) {
            return piece;
        }
        m_buffer.clear();
        decomposed(icu::UnicodeString::fromUTF8(piece)).toUTF8String(m_buffer);
        return m_buffer;
    }

private:
    NormalPieces m_pieces;
    std::string m_buffer;
};

std::size_t commonStart(std::string_view left, std::string_view right) {
    const auto length = std::min(left.size(), right.size());
    std::size_t at = 0;
    while (at + USUAL_PIECE <= length && std::memcmp(left.data() + at, right.data() + at, USUAL_PIECE) == 0) {
        at += USUAL_PIECE;
    }
    while (at < length && left[at] == right[at]) {
        ++at;
    }
    return at;
}

void addToHash(std::uint64_t& hash, std::string_view bytes) {
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * FNV_PRIME;
    }
}

} // namespace

std::string_view NormalPieces::next() {
    std::size_t end = asciiLength(m_rest.substr(0, LONGEST_ASCII_PIECE));
    const bool isAllAscii = end == m_rest.size();
    if (!isAllAscii && end < SHORTEST_ASCII_PIECE) {
        end = std::min(m_rest.size(), USUAL_PIECE);
        end = end < m_rest.size() ? previousCodePoint(m_rest, end + 1) : end;
        while (end < m_rest.size() && end < LONGEST_PIECE) {
            auto after = end;
            if (startsAnew(nextCodePoint(m_rest, after))) {
                break;
            }
            end = after;
        }
    } else if (!isAllAscii) {
        --end;
    }
    const auto piece = m_rest.substr(0, end);
    m_rest.remove_prefix(end);
    return piece;
}

bool NormalPieces::isAscii(std::string_view piece) {
    return asciiLength(piece) == piece.size();
}

icu::UnicodeString decomposed(const icu::UnicodeString& piece) {
    UErrorCode status = U_ZERO_ERROR;
    auto result = normalizer() != nullptr ? normalizer()->normalize(piece, status) : piece;
    return U_SUCCESS(status) ? result : piece;
}

bool canonicallyEqual(std::string_view left, std::string_view right) {
    auto same = commonStart(left, right);
    if (same == left.size() && same == right.size()) {
        return true;
    }
    // Equal starts cancel out, combining marks and all; only a code point must not be cut.
    same = same > 0 ? previousCodePoint(left, same) : 0;

    DecomposedPieces leftPieces(left.substr(same));
    DecomposedPieces rightPieces(right.substr(same));
    std::string_view leftPiece;
    std::string_view rightPiece;
    while (true) {
        leftPiece = leftPiece.empty() ? leftPieces.next() : leftPiece;
        rightPiece = rightPiece.empty() ? rightPieces.next() : rightPiece;
        const auto length = std::min(leftPiece.size(), rightPiece.size());
        if (length == 0) {
            return leftPiece.empty() && rightPiece.empty();
        }
        if (leftPiece.substr(0, length) != rightPiece.substr(0, length)) {
            return false;
        }
        leftPiece.remove_prefix(length);
        rightPiece.remove_prefix(length);
    }
}

std::uint64_t canonicalHash(std::string_view text) {
    std::uint64_t hash = FNV_OFFSET;
    DecomposedPieces pieces(text);
    for (auto piece = pieces.next(); !piece.empty(); piece = pieces.next()) {
        addToHash(hash, piece);
    }
    return hash;
}

std::uint64_t byteHash(std::string_view bytes) {
    std::uint64_t hash = FNV_OFFSET;
    addToHash(hash, bytes);
    return hash;
}

} // namespace zamber
