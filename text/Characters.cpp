// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/Characters.h"

#include "text/ByteBlocks.h"
#include "text/CodePoints.h"

#include <unicode/ubrk.h>
#include <unicode/utext.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace zamber::text {

namespace {

/// ICU addresses a text with 32 bits.
constexpr std::size_t MAX_WALKED_BYTES = std::size_t{1} << 30;

/// How much text around a place is looked at to decide whether it is a boundary: more than any written character has.
constexpr std::size_t BOUNDARY_CONTEXT_BYTES = 1024;

/// ICU's rules, walking over a UTF-8 text in place.
class BoundaryWalk {
public:
    BoundaryWalk()
        : m_iterator(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &m_status)) {}
    ~BoundaryWalk() {
        ubrk_close(m_iterator);
        utext_close(&m_text);
    }
    BoundaryWalk(const BoundaryWalk&) = delete;
    BoundaryWalk& operator=(const BoundaryWalk&) = delete;

    void start(std::string_view text) {
        m_status = m_iterator != nullptr ? U_ZERO_ERROR : U_MISSING_RESOURCE_ERROR;
        utext_openUTF8(&m_text, text.data(), static_cast<std::int64_t>(std::min(text.size(), MAX_WALKED_BYTES)),
                       &m_status);
        ubrk_setUText(m_iterator, &m_text, &m_status);
    }

    /// The end of the next character, or 0 at the end of the text and when ICU has no data.
    std::size_t next() {
        const int end = U_SUCCESS(m_status) ? ubrk_next(m_iterator) : UBRK_DONE;
        return end == UBRK_DONE ? 0 : static_cast<std::size_t>(end);
    }

    bool isBoundary(std::size_t at) {
        return U_FAILURE(m_status) || ubrk_isBoundary(m_iterator, static_cast<int>(at)) != 0;
    }

private:
    UErrorCode m_status = U_ZERO_ERROR;
    UBreakIterator* m_iterator = nullptr;
    UText m_text = UTEXT_INITIALIZER;
};

BoundaryWalk& boundaryWalk() {
    thread_local BoundaryWalk walk; // opening one reads ICU's rules
    return walk;
}

/// Letters and signs of the usual scripts, between any two of which there is a boundary (but for CR LF): none of
/// them extends, joins or is joined without some other character's help. Sorted.
struct Range {
    char32_t first;
    char32_t last;
};
constexpr Range PLAIN_RANGES[] = {
    {0x00, 0x7F},     {0xC0, 0x2FF},    {0x370, 0x482},   {0x48A, 0x590},   {0x5D0, 0x5EA},
    {0x620, 0x64A},   {0x1E00, 0x1FFF}, {0x2010, 0x2027}, {0x3000, 0x3029}, {0x3041, 0x3096},
    {0x30A0, 0x30FF}, {0x3400, 0x9FFF}, {0xAC00, 0xD7A3}, {0xFF01, 0xFF9D},
};

/// A bit for each character of the basic plane.
constexpr auto PLAIN_BITS = [] {
    std::array<std::uint64_t, 0x10000 / 64> bits{};
    for (const auto& range : PLAIN_RANGES) {
        for (auto c = range.first; c <= range.last; ++c) {
            bits[c / 64] |= std::uint64_t{1} << (c % 64);
        }
    }
    return bits;
}();

bool isPlain(char32_t c) {
    return c < 0x10000 && (PLAIN_BITS[c / 64] >> (c % 64) & 1U) != 0;
}

/// The characters at the start that can be told without ICU.
CharacterRun plainStart(std::string_view text, std::size_t limit) {
    CharacterRun run;
    std::size_t after = 0;
    char32_t character = text.empty() ? 0 : nextCodePoint(text, after);
    while (after > run.bytes && run.count < limit && isPlain(character)) {
        auto end = after;
        char32_t next = after < text.size() ? nextCodePoint(text, end) : 0;
        if (character == '\r' && next == '\n' && end > after) {
            after = end;
            next = after < text.size() ? nextCodePoint(text, end) : 0;
        } else if (!isPlain(next)) {
            break; // the next character may be a mark that belongs to this one
        }
        ++run.count;
        run.bytes = after;
        after = end;
        character = next;
    }
    return run;
}

/// The ASCII characters at the start, counted a block at a time. The last block is left out, and so is one that other
/// characters follow, which may be marks on its last letter.
CharacterRun asciiStart(std::string_view text, std::size_t limit) {
    CharacterRun run;
    while (run.bytes + BYTE_BLOCK < text.size() && limit - run.count >= BYTE_BLOCK) {
        const auto* bytes = reinterpret_cast<const unsigned char*>(text.data()) + run.bytes;
        unsigned char seen = 0;
        unsigned char pairs = 0;
        for (std::size_t i = 0; i < BYTE_BLOCK; ++i) {
            seen |= bytes[i];
            pairs = static_cast<unsigned char>(pairs + ((bytes[i] == '\r') & (bytes[i + 1] == '\n')));
        }
        // A CR LF that crosses the block's end is one character, counted with its line feed in the next block.
        if (((seen | bytes[BYTE_BLOCK]) & 0x80U) != 0) {
            break;
        }
        run.bytes += BYTE_BLOCK;
        run.count += BYTE_BLOCK - pairs;
    }
    // The run must not end between CR and LF.
    if (run.bytes > 0 && text[run.bytes - 1] == '\r' && text[run.bytes] == '\n') {
        --run.bytes;
    }
    return run;
}

bool isSpaceOrTab(char32_t c) {
    return c == '\t' || c == ' ' || c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x202F ||
           c == 0x205F || c == 0x3000;
}

bool isNewline(char32_t c) {
    return (c >= '\n' && c <= '\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

} // namespace

CharacterRun countCharacters(std::string_view text, std::size_t limit) {
    CharacterRun run;
    auto& at = run.bytes;
    while (at < text.size() && run.count < limit) {
        const auto ascii = asciiStart(text.substr(at), limit - run.count);
        at += ascii.bytes;
        run.count += ascii.count;
        const auto plain = plainStart(text.substr(at), limit - run.count);
        at += plain.bytes;
        run.count += plain.count;
        if (ascii.bytes + plain.bytes > 0) {
            continue;
        }

        auto& walk = boundaryWalk();
        const auto start = at;
        walk.start(text.substr(start));
        do {
            const auto end = walk.next();
            if (end == 0) {
                if (at == start) {
                    nextCodePoint(text, at);
                    ++run.count;
                }
                break;
            }
            at = start + end;
            ++run.count;
        } while (at < text.size() && run.count < limit && plainStart(text.substr(at), 1).count == 0);
    }
    return run;
}

bool isCharacterBoundary(std::string_view text, std::size_t at) {
    if (at == 0 || at >= text.size()) {
        return true;
    }
    const std::size_t from = at > BOUNDARY_CONTEXT_BYTES ? previousCodePoint(text, at - BOUNDARY_CONTEXT_BYTES) : 0;
    auto& walk = boundaryWalk();
    walk.start(text.substr(from, at - from + BOUNDARY_CONTEXT_BYTES));
    return walk.isBoundary(at - from);
}

std::string_view trimmed(std::string_view text) {
    const auto isBlank = [](char32_t c) { return isSpaceOrTab(c) || isNewline(c); };
    while (!text.empty()) {
        std::size_t at = 0;
        if (!isBlank(nextCodePoint(text, at))) {
            break;
        }
        text.remove_prefix(at);
    }
    while (!text.empty()) {
        const auto start = previousCodePoint(text, text.size());
        auto at = start;
        if (!isBlank(nextCodePoint(text, at)) || at != text.size()) {
            break;
        }
        text = text.substr(0, start);
    }
    return text;
}

std::size_t countLines(std::string_view text) {
    // Every newline starts with one of these bytes; other characters may, too.
    const auto mayBeNewline = [](unsigned char byte) {
        return static_cast<unsigned char>(((byte >= '\n') & (byte <= '\r')) | (byte == 0xC2) | (byte == 0xE2));
    };
    std::size_t lines = 0;
    bool isBlank = true;
    for (std::size_t at = 0; at < text.size();) {
        const auto c = nextCodePoint(text, at);
        if (isNewline(c)) {
            isBlank = true;
            continue;
        }
        if (isBlank && !isSpaceOrTab(c)) {
            isBlank = false;
            ++lines;
        }
        if (!isBlank) {
            at = findByte(text, at, mayBeNewline);
        }
    }
    return lines;
}

} // namespace zamber::text
