// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/ByteBlocks.h"
#include "text/CharacterEnds.h"
#include "text/CodePoints.h"

#include "clipboard/Search.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <vector>

namespace zamber::clipboard {

namespace {

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

/// Says whether a match ends where a user-perceived character ends. Remembers the characters around refused matches,
/// since in a text of one script the same few come again and again.
class Ends {
public:
    explicit Ends(std::string_view searched)
        : m_searchedBytes(searched.size()) {
        std::size_t at = 0;
        const auto first = text::nextCodePoint(searched, at);
        auto lastAt = text::previousCodePoint(searched, searched.size());
        const auto last = text::nextCodePoint(searched, lastAt);
        // Otherwise the character before the match counts as well, and if that is a mark, those before it.
        m_followerDecides = !text::mayJoinWhatFollows(last) || !text::extendsCharacter(first);
    }

    bool endsCharacter(std::string_view key, std::size_t end) {
        if (end + CHARACTER_BYTES <= key.size()) {
            const auto follower = characterAt(key.data() + end);
            if (follower == slot(m_refusedAlone, follower) && follower != 0) {
                return false;
            }
        }
        return endsUnrefusedCharacter(key, end);
    }

private:
    bool endsUnrefusedCharacter(std::string_view key, std::size_t end) {
        if (end + CHARACTER_BYTES > key.size() || end - m_searchedBytes < CHARACTER_BYTES) {
            return text::endsCharacter(key, end);
        }
        const auto follower = characterAt(key.data() + end);
        if (!m_followerDecides) {
            return endsCharacterBetween(key, end, follower);
        }
        if (text::endsCharacter(key, end)) {
            return true;
        }
        slot(m_refusedAlone, follower) = follower;
        return false;
    }

    /// The same where the characters on both sides of the match decide. A refusal is remembered by both of them; by the
    /// one behind alone where that is a mark, which is always refused; not at all where the one before is a mark, since
    /// the characters before that count, too.
    bool endsCharacterBetween(std::string_view key, std::size_t end, std::uint32_t follower) {
        const auto start = end - m_searchedBytes;
        const auto pair = std::uint64_t{characterBefore(key.data() + start)} << 32U | follower;
        auto& refused = slot(m_refusedTogether, pair);
        if (pair == refused) {
            return false;
        }
        if (text::endsCharacter(key, end)) {
            return true;
        }
        const auto extendsAt = [key](std::size_t at) { return text::extendsCharacter(text::nextCodePoint(key, at)); };
        if (extendsAt(end)) {
            slot(m_refusedAlone, follower) = follower;
        } else if (!extendsAt(text::previousCodePoint(key, start))) {
            refused = pair;
        }
        return false;
    }

    static constexpr std::size_t CHARACTER_BYTES = sizeof(std::uint32_t);
    static constexpr unsigned REFUSED_BITS = 6;
    template <class Value>
    using Refused = std::array<Value, std::size_t{1} << REFUSED_BITS>;

    template <class Value>
    static Value& slot(Refused<Value>& refused, Value value) {
        constexpr std::uint64_t MULTIPLIER = 0x9E3779B97F4A7C15; // a hash: its upper bits depend on all
        return refused[value * MULTIPLIER >> (64U - REFUSED_BITS)];
    }

    /// Which of four bytes belong to a character in UTF-8, by the upper half of its first byte.
    static constexpr auto CHARACTER_MASKS = [] {
        std::array<std::uint32_t, 16> masks{};
        for (std::size_t half = 0; half < masks.size(); ++half) {
            std::array<unsigned char, CHARACTER_BYTES> bytes{};
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

    static std::uint32_t characterBefore(const char* place) {
        std::size_t length = 1;
        while (length < CHARACTER_BYTES &&
               (static_cast<unsigned char>(place[-static_cast<int>(length)]) & 0xC0U) == 0x80U) {
            ++length;
        }
        return characterAt(place - length);
    }

    std::size_t m_searchedBytes;
    bool m_followerDecides = true;
    Refused<std::uint32_t> m_refusedAlone{};
    Refused<std::uint64_t> m_refusedTogether{};
};

/// The searched text, made ready to be compared with many places.
class Searched {
public:
    /// So many bytes from a place on are read at least.
    static constexpr std::size_t READ_BYTES = sizeof(std::uint64_t);

    explicit Searched(std::string_view text)
        : m_text(text)
        , m_lastAt(text.size() - 1) {
        std::memcpy(&m_start, text.data(), std::min(text.size(), READ_BYTES));
        std::memset(&m_startMask, 0xFF, std::min(text.size(), READ_BYTES));
        const auto lastCharacterAt = text::previousCodePoint(text, text.size());
        m_otherAt = lastCharacterAt > 0 ? lastCharacterAt - 1 : m_lastAt - std::min(m_lastAt, std::size_t{1});
    }

    /// A bit for each place of a block where it may stand, by the last bytes of its last two characters: in most
    /// scripts the characters agree in their first bytes and differ in their last ones.
    std::uint32_t mayStandAt(const char* block) const {
        const char last = m_text[m_lastAt];
        const char other = m_text[m_otherAt];
        const char* const lasts = block + m_lastAt;
        const char* const others = block + m_otherAt;
        text::BlockMarks marks; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
        for (std::size_t i = 0; i < text::BYTE_BLOCK; ++i) {
            marks[i] = static_cast<unsigned char>((lasts[i] == last) & (others[i] == other));
        }
        return text::markBits(marks);
    }

    bool standsAt(const char* place) const {
        std::uint64_t start = 0;
        std::memcpy(&start, place, sizeof start);
        return (start & m_startMask) == m_start &&
               (m_text.size() <= READ_BYTES ||
                std::memcmp(place + READ_BYTES, m_text.data() + READ_BYTES, m_text.size() - READ_BYTES) == 0);
    }

private:
    std::string_view m_text;
    std::uint64_t m_start = 0;
    std::uint64_t m_startMask = 0;
    std::size_t m_lastAt = 0;
    std::size_t m_otherAt = 0;
};

/// Is there a match at or behind the place `from`? By the algorithm of Knuth, Morris and Pratt: slower than comparing
/// blocks in nearly all texts, but it reads each byte of the text once, however often the searched text nearly matches.
bool containsByPrefixes(std::string_view key, std::string_view searched, std::size_t from, Ends& ends) {
    // How much of its start stands before each place of the searched text.
    std::vector<std::size_t> prefixes(searched.size() + 1);
    const auto longer = [&](std::size_t matched, char next) {
        while (matched > 0 && (matched == searched.size() || searched[matched] != next)) {
            matched = prefixes[matched];
        }
        return matched + (searched[matched] == next ? 1 : 0);
    };
    for (std::size_t at = 1; at < searched.size(); ++at) {
        prefixes[at + 1] = longer(prefixes[at], searched[at]);
    }
    std::size_t matched = 0;
    for (auto at = from; at < key.size(); ++at) {
        matched = longer(matched, key[at]);
        if (matched == searched.size() && ends.endsCharacter(key, at + 1)) {
            return true;
        }
    }
    return false;
}

/// Is there a match at or behind the place `from`? Compares two bytes of the searched text with a block of places at a
/// time, so that many places where only one of the two is right cost little.
bool containsFrom(std::string_view key, std::string_view searchedText, std::size_t from, Ends& ends) {
    // A long searched text that stands nearly everywhere is compared in full so often, before another way is taken.
    constexpr std::size_t FREELY_COMPARED_BYTES = std::size_t{1} << 16;
    constexpr std::size_t COMPARED_BYTES_A_PLACE = 8;
    const Searched searched(searchedText);
    const auto read = std::max(searchedText.size(), Searched::READ_BYTES);
    std::size_t compared = 0;
    auto at = from;
    for (; at + text::BYTE_BLOCK + read <= key.size(); at += text::BYTE_BLOCK) {
        for (auto bits = searched.mayStandAt(key.data() + at); bits != 0; bits &= bits - 1) {
            const auto place = at + static_cast<std::size_t>(std::countr_zero(bits));
            if (searched.standsAt(key.data() + place) && ends.endsCharacter(key, place + searchedText.size())) {
                return true;
            }
            compared += searchedText.size();
        }
        if (compared > FREELY_COMPARED_BYTES + COMPARED_BYTES_A_PLACE * (at - from)) {
            return containsByPrefixes(key, searchedText, at, ends);
        }
    }
    for (; at + searchedText.size() <= key.size(); ++at) {
        if (key.substr(at).starts_with(searchedText) && ends.endsCharacter(key, at + searchedText.size())) {
            return true;
        }
    }
    return false;
}

} // namespace

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
