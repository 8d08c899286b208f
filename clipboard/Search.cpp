// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Search.h"

#include "text/ByteBlocks.h"
#include "text/ByteView.h"
#include "text/CharacterEnds.h"
#include "text/CodePoints.h"
#include "text/NormalForm.h"

#include <QLocale>

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace zamber::clipboard {

namespace {

constexpr char16_t COMBINING_DOT_ABOVE = 0x0307;
constexpr char16_t DOTLESS_I = 0x0131;
constexpr std::size_t FOLDED_AT_ONCE_BYTES = 4096;

bool isUpperCaseAscii(char c) {
    return c >= 'A' && c <= 'Z';
}

/// Lower-cases I as Turkish does: İ, which stands here in its decomposed form, becomes i, and I becomes ı.
icu::UnicodeString withTurkicI(const icu::UnicodeString& text) {
    icu::UnicodeString result;
    for (int at = 0; at < text.length(); ++at) {
        if (text[at] != u'I') {
            result.append(text[at]);
        } else if (at + 1 < text.length() && text[at + 1] == COMBINING_DOT_ABOVE) {
            result.append(u'i');
            ++at;
        } else {
            result.append(DOTLESS_I);
        }
    }
    return result;
}

/// Appends the key of a piece of text that can be normalised on its own, by ICU.
void appendFolded(QByteArray& key, std::string_view piece, text::CaseFolding folding) {
    auto apart =
        text::decomposed(icu::UnicodeString::fromUTF8({piece.data(), static_cast<std::int32_t>(piece.size())}));
    if (folding == text::CaseFolding::Turkic) {
        apart = withTurkicI(apart);
    }
    apart.foldCase();
    text::decomposed(apart).toUTF8String(key);
}

void appendLowerCaseAscii(QByteArray& key, std::string_view text) {
    const auto start = key.size();
    key.resize(start + static_cast<qsizetype>(text.size()));
    char* to = key.data() + start;
    const auto lowerCased = [](char c) { return static_cast<char>(c + (isUpperCaseAscii(c) ? 'a' - 'A' : 0)); };
    std::size_t at = 0;
    for (; at + text::BYTE_BLOCK <= text.size(); at += text::BYTE_BLOCK) {
        for (std::size_t i = 0; i < text::BYTE_BLOCK; ++i) {
            to[at + i] = lowerCased(text[at + i]);
        }
    }
    for (; at < text.size(); ++at) {
        to[at] = lowerCased(text[at]);
    }
}

bool needsIcu(std::string_view piece, text::CaseFolding folding) {
    const unsigned char entangled = folding == text::CaseFolding::Turkic ? 'I' : 0x80;
    return text::findByte(piece, 0, [entangled](unsigned char byte) {
               return static_cast<unsigned char>((byte >= 0x80) | (byte == entangled));
           }) < piece.size();
}

/// Passes over the beginning of the text by searching for the first byte of the searched text, which is the fastest way
/// as long as that byte is rare. Returns a place before which there is no match: a match, the end of the text, or where
/// the byte has become too frequent.
std::size_t skipByFirstByte(std::string_view text, std::string_view searched) {
    constexpr std::size_t BYTES_A_TRY = 64;
    constexpr std::size_t FREE_TRIES = 16;
    std::size_t at = 0;
    for (std::size_t tries = 0; tries < FREE_TRIES + at / BYTES_A_TRY; ++tries, ++at) {
        at = std::min(text.find(searched.front(), at), text.size());
        if (at == text.size() || text.substr(at).starts_with(searched)) {
            break;
        }
    }
    return at;
}

/// Says whether a match ends where a user-perceived character ends. Remembers the characters that followed refused
/// matches, since in a text of one script the same few follow again and again.
class Ends {
public:
    explicit Ends(std::string_view searched) {
        std::size_t at = 0;
        const auto first = static_cast<UChar32>(text::nextCodePoint(searched, at));
        auto lastAt = text::previousCodePoint(searched, searched.size());
        const auto last = text::nextCodePoint(searched, lastAt);
        const auto firstBreak = u_getIntPropertyValue(first, UCHAR_GRAPHEME_CLUSTER_BREAK);
        // Otherwise the characters before the end of the match count as well as the one behind it.
        m_followerDecides = !text::mayJoinWhatFollows(last) || (firstBreak != U_GCB_EXTEND && firstBreak != U_GCB_ZWJ);
    }

    bool endsCharacter(std::string_view key, std::size_t end) {
        if (!m_followerDecides || end + sizeof(std::uint32_t) > key.size()) {
            return text::endsCharacter(key, end);
        }
        const auto follower = characterAt(key.data() + end);
        auto& refused = m_refused[follower * MULTIPLIER >> (32U - REFUSED_BITS)];
        if (follower == refused && follower != 0) {
            return false;
        }
        if (text::endsCharacter(key, end)) {
            return true;
        }
        refused = follower;
        return false;
    }

private:
    static constexpr unsigned REFUSED_BITS = 6;
    static constexpr std::uint32_t MULTIPLIER =
        0x9E3779B1; // a hash: its upper bits depend on all bits of the character

    /// Which of four bytes belong to a character in UTF-8, by the upper half of its first byte.
    static constexpr auto CHARACTER_MASKS = [] {
        std::array<std::uint32_t, 16> masks{};
        for (std::size_t half = 0; half < masks.size(); ++half) {
            std::array<unsigned char, 4> bytes{};
            const std::size_t length = half < 0xC ? 1 : half < 0xE ? 2 : half < 0xF ? 3 : 4;
            std::fill_n(bytes.begin(), length, static_cast<unsigned char>(0xFF));
            masks[half] = std::bit_cast<std::uint32_t>(bytes);
        }
        return masks;
    }();

    static std::uint32_t characterAt(const char* place) {
        std::uint32_t bytes = 0;
        std::memcpy(&bytes, place, sizeof bytes);
        return bytes & CHARACTER_MASKS[static_cast<unsigned char>(*place) >> 4U];
    }

    bool m_followerDecides;
    std::array<std::uint32_t, std::size_t{1} << REFUSED_BITS> m_refused{};
};

/// Is there a match at or behind the place `from`? Compares the first and the last byte of the searched text with a
/// block of places at a time, so that many places where only one of the two is right cost little.
bool containsFrom(std::string_view key, std::string_view searched, std::size_t from, Ends& ends) {
    const char first = searched.front();
    const char last = searched.back();
    const char* const lasts = key.data() + searched.size() - 1;
    const auto isHit = [&](std::size_t at) {
        return std::memcmp(key.data() + at, searched.data(), searched.size()) == 0 &&
               ends.endsCharacter(key, at + searched.size());
    };
    auto at = from;
    for (; at + text::BYTE_BLOCK + searched.size() <= key.size(); at += text::BYTE_BLOCK) {
        text::BlockMarks marks; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
        for (std::size_t i = 0; i < text::BYTE_BLOCK; ++i) {
            marks[i] = static_cast<unsigned char>((key[at + i] == first) & (lasts[at + i] == last));
        }
        for (auto bits = text::markBits(marks); bits != 0; bits &= bits - 1) {
            if (isHit(at + static_cast<std::size_t>(std::countr_zero(bits)))) {
                return true;
            }
        }
    }
    for (; at + searched.size() <= key.size(); ++at) {
        if (isHit(at)) {
            return true;
        }
    }
    return false;
}

} // namespace

text::CaseFolding userCaseFolding() {
    const auto language = QLocale().language();
    const bool isTurkic = language == QLocale::Turkish || language == QLocale::Azerbaijani;
    return isTurkic ? text::CaseFolding::Turkic : text::CaseFolding::Common;
}

QByteArray makeSearchKey(const QByteArray& text, text::CaseFolding folding) {
    const std::atomic<bool> isStopped = false;
    return makeSearchKey(text, folding, isStopped);
}

QByteArray makeSearchKey(const QByteArray& text, text::CaseFolding folding, const std::atomic<bool>& isStopped) {
    const auto needsFolding = [](unsigned char byte) {
        return static_cast<unsigned char>((byte >= 0x80) | ((byte >= 'A') & (byte <= 'Z')));
    };
    if (text::findByte(text::view(text), 0, needsFolding) == text::view(text).size()) {
        return text;
    }
    QByteArray key;
    key.reserve(text.size() + text.size() / 8);
    text::NormalPieces pieces(text::view(text), FOLDED_AT_ONCE_BYTES);
    for (auto piece = pieces.next(); !piece.empty() && !isStopped; piece = pieces.next()) {
        if (needsIcu(piece, folding)) {
            appendFolded(key, piece, folding);
        } else {
            appendLowerCaseAscii(key, piece);
        }
    }
    key.squeeze();
    return key;
}

bool searchKeyContains(std::string_view key, std::string_view searchedKey) {
    if (searchedKey.empty()) {
        return true;
    }
    if (key.size() < searchedKey.size()) {
        return false;
    }
    Ends ends(searchedKey);
    return containsFrom(key, searchedKey, skipByFirstByte(key, searchedKey), ends);
}

} // namespace zamber::clipboard
