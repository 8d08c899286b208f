// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/TextFinder.h"

#include "text/ByteBlocks.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>

namespace zamber::clipboard {

namespace {

/// Few enough that a text which has both bytes now and then is mostly passed over, many enough to ask seldom.
constexpr std::size_t BLOCKS_BYTES = 4 * text::BYTE_BLOCK;
/// From where the rarest byte is, so much is looked through for two: often it is not as rare as all that.
constexpr std::size_t STRETCH_BYTES = 4096;

/// How seldom bytes are in texts, roughly: the higher the rarer.
int rarity(char c) {
    constexpr std::string_view COMMON = " etaoinsrhldcumfpgwybv,.k\n-\"_'/:;()0123456789xjqz";
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0xC0) {
        return 1; // the start of a letter of some script; in such texts, every second or third byte
    }
    const auto place = COMMON.find(c);
    return place == std::string_view::npos ? static_cast<int>(COMMON.size()) : static_cast<int>(place);
}

/// Looks for a text by two of its bytes at once, the rarest and another, and compares in full only where both are.
class TextFinder {
public:
    /// The searched text has two bytes or more and is not longer than the other.
    TextFinder(std::string_view text, std::string_view searched)
        : m_text(text.data())
        , m_searched(searched)
        , m_end(text.size() - searched.size() + 1) {
        const auto rarest = static_cast<std::size_t>(std::ranges::max_element(searched, {}, rarity) - searched.begin());
        const auto other = rarest == 0 ? searched.size() - 1 : 0;
        m_rareByte = searched[rarest];
        m_otherByte = searched[other];
        m_rareStart = m_text + rarest;
        m_otherStart = m_text + other;
    }

    /// Where it comes next, or nothing.
    std::optional<std::size_t> next(std::size_t from) const {
        for (auto at = from; at < m_end;) {
            // The library passes over what has the rare byte nowhere as fast as memory is read.
            const auto* rare = static_cast<const char*>(std::memchr(m_rareStart + at, m_rareByte, m_end - at));
            if (rare == nullptr) {
                break;
            }
            at = static_cast<std::size_t>(rare - m_rareStart);
            const auto stop = std::min(at + STRETCH_BYTES, m_end);
            if (const auto place = nextBefore(stop, at)) {
                return place;
            }
            at = stop;
        }
        return std::nullopt;
    }

private:
    unsigned char hasBoth(std::size_t at) const {
        return static_cast<unsigned char>((m_rareStart[at] == m_rareByte) & (m_otherStart[at] == m_otherByte));
    }

    bool isAt(std::size_t at) const { return std::memcmp(m_text + at, m_searched.data(), m_searched.size()) == 0; }

    bool hasBothAmong(std::size_t blocks) const {
        text::BlockMarks anywhere{};
        for (std::size_t block = blocks; block < blocks + BLOCKS_BYTES; block += text::BYTE_BLOCK) {
            for (std::size_t i = 0; i < text::BYTE_BLOCK; ++i) {
                anywhere[i] |= hasBoth(block + i);
            }
        }
        return text::markBits(anywhere) != 0;
    }

    std::optional<std::size_t> inBlock(std::size_t block) const {
        text::BlockMarks marks; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
        for (std::size_t i = 0; i < text::BYTE_BLOCK; ++i) {
            marks[i] = hasBoth(block + i);
        }
        for (auto bits = text::markBits(marks); bits != 0; bits &= bits - 1) {
            const auto place = block + static_cast<std::size_t>(std::countr_zero(bits));
            if (isAt(place)) {
                return place;
            }
        }
        return std::nullopt;
    }

    std::optional<std::size_t> nextBefore(std::size_t stop, std::size_t at) const {
        while (at + text::BYTE_BLOCK <= stop) {
            if (at + BLOCKS_BYTES <= stop && !hasBothAmong(at)) {
                at += BLOCKS_BYTES;
                continue;
            }
            const auto blocksEnd = std::min(at + BLOCKS_BYTES, stop);
            for (; at + text::BYTE_BLOCK <= blocksEnd; at += text::BYTE_BLOCK) {
                if (const auto place = inBlock(at)) {
                    return place;
                }
            }
        }
        for (; at < stop; ++at) {
            if (hasBoth(at) != 0 && isAt(at)) {
                return at;
            }
        }
        return std::nullopt;
    }

    const char* m_text;
    std::string_view m_searched;
    std::size_t m_end; // of where it may start
    char m_rareByte = 0;
    char m_otherByte = 0;
    const char* m_rareStart = nullptr;
    const char* m_otherStart = nullptr;
};

} // namespace

std::size_t findText(std::string_view text, std::string_view searched, std::size_t from) {
    if (searched.size() == 1) {
        return std::min(text.find(searched[0], from), text.size());
    }
    if (text.size() < searched.size()) {
        return text.size();
    }
    return TextFinder(text, searched).next(from).value_or(text.size());
}

} // namespace zamber::clipboard
