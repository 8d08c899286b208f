// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/NormalForm.h"

#include "text/ByteBlocks.h"
#include "text/CodePoints.h"

#include <QHash>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace zamber::text {

namespace {

/// Below this many bytes of ASCII, handing them to ICU with their neighbours costs less than a piece of their own.
constexpr std::size_t SHORTEST_ASCII_PIECE = 64;
constexpr std::size_t COMPARED_AT_ONCE_BYTES = 1024;
/// A piece of more is cut in the middle of its marks, since ICU counts with 32 bits.
constexpr std::size_t LONGEST_PIECE = std::size_t{1} << 28;
/// ICU sorts a run of combining marks in the square of its length, which takes no noticeable time up to here.
constexpr int MOST_UNITS_FOR_ICU = 8192;
constexpr std::size_t LONGEST_ASCII_PIECE = std::size_t{1} << 12;

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

/// The decomposition by its definition: each code point by itself, then each run of combining marks by their classes.
icu::UnicodeString decomposedByDefinition(const icu::UnicodeString& text) {
    icu::UnicodeString result;
    std::vector<UChar32> marks;
    const auto appendMarks = [&] {
        std::ranges::stable_sort(marks, {}, u_getCombiningClass);
        for (const auto mark : marks) {
            result.append(mark);
        }
        marks.clear();
    };
    for (int at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
        icu::UnicodeString own;
        if (normalizer()->getDecomposition(text.char32At(at), own) == 0) {
            own = text.char32At(at);
        }
        for (int place = 0; place < own.length(); place = own.moveIndex32(place, 1)) {
            const auto codePoint = own.char32At(place);
            if (u_getCombiningClass(codePoint) != 0) {
                marks.push_back(codePoint);
            } else {
                appendMarks();
                result.append(codePoint);
            }
        }
    }
    appendMarks();
    return result;
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
    while (at + COMPARED_AT_ONCE_BYTES <= length &&
           std::memcmp(left.data() + at, right.data() + at, COMPARED_AT_ONCE_BYTES) == 0) {
        at += COMPARED_AT_ONCE_BYTES;
    }
    while (at < length && left[at] == right[at]) {
        ++at;
    }
    return at;
}

/// Hashes bytes that come in pieces, the same whatever the pieces.
class PieceHash { // NOLINT(cppcoreguidelines-pro-type-member-init)
public:
    void add(std::string_view bytes) {
        while (!bytes.empty()) {
            if (m_filled == 0 && bytes.size() >= m_block.size()) {
                m_hash = byteHash(bytes.substr(0, m_block.size()), m_hash);
                bytes.remove_prefix(m_block.size());
                continue;
            }
            const auto length = std::min(bytes.size(), m_block.size() - m_filled);
            std::memcpy(m_block.data() + m_filled, bytes.data(), length);
            m_filled += length;
            bytes.remove_prefix(length);
            if (m_filled == m_block.size()) {
                m_hash = byteHash({m_block.data(), m_filled}, m_hash);
                m_filled = 0;
            }
        }
    }

    std::uint64_t finish() const { return byteHash({m_block.data(), m_filled}, m_hash); }

private:
    std::array<char, 1024> m_block; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
    std::size_t m_filled = 0;
    std::uint64_t m_hash = 0;
};

} // namespace

std::string_view NormalPieces::next() {
    std::size_t end = asciiLength(m_rest.substr(0, LONGEST_ASCII_PIECE));
    const bool isAllAscii = end == m_rest.size();
    if (!isAllAscii && end < SHORTEST_ASCII_PIECE) {
        end = std::min(m_rest.size(), m_usualPieceBytes);
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
    if (normalizer() != nullptr && piece.length() > MOST_UNITS_FOR_ICU) {
        return decomposedByDefinition(piece);
    }
    UErrorCode status = U_ZERO_ERROR;
    auto result = normalizer() != nullptr ? normalizer()->normalize(piece, status) : piece;
    return U_SUCCESS(status) ? result : piece;
}

bool canonicallyEqual(std::string_view left, std::string_view right) {
    auto same = commonStart(left, right);
    if (same == left.size() && same == right.size()) {
        return true;
    }
    // Equal beginnings need no decomposition, even where a mark follows them. Only a code point must not be cut.
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

std::uint64_t canonicalHash(std::string_view text, std::size_t limit) {
    PieceHash hash;
    DecomposedPieces pieces(text);
    for (auto piece = pieces.next(); !piece.empty() && limit > 0; piece = pieces.next()) {
        const auto seen = piece.substr(0, limit);
        hash.add(seen);
        limit -= seen.size();
    }
    return hash.finish();
}

std::uint64_t byteHash(std::string_view bytes, std::uint64_t seed) {
    return qHashBits(bytes.data(), bytes.size(), QHashSeed::globalSeed() ^ seed);
}

} // namespace zamber::text
