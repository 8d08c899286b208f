// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Characters.h"

#include "clipboard/CodePoints.h"

#include <unicode/ubrk.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstdint>

namespace zamber {

namespace {

/// ICU addresses a text with 32 bits.
constexpr std::size_t MAX_WALKED_BYTES = std::size_t{1} << 30;

/// What stands around a place decides whether it is a boundary; no character that anybody typed is longer.
constexpr std::size_t BOUNDARY_CONTEXT_BYTES = 1024;

/// ICU's rules, walking over a UTF-8 text in place.
class BoundaryWalk {
public:
    BoundaryWalk() { m_iterator = ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &m_status); }
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

bool isPlain(char32_t c) {
    const auto* range = std::ranges::find_if(PLAIN_RANGES, [c](const Range& r) { return c <= r.last; });
    return range != std::end(PLAIN_RANGES) && c >= range->first;
}

/// The end of the character that starts here, when it can be told without ICU, else 0.
std::size_t plainCharacterEnd(std::string_view text, std::size_t at) {
    const char32_t first = nextCodePoint(text, at);
    if (!isPlain(first)) {
        return 0;
    }
    if (at == text.size()) {
        return at;
    }
    std::size_t after = at;
    const char32_t second = nextCodePoint(text, after);
    if (first == '\r' && second == '\n') {
        return after;
    }
    return isPlain(second) ? at : 0;
}

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80U;
}

/// The ASCII characters at the start, up to the last one that has ASCII behind it.
CharacterRun asciiStart(std::string_view text, std::size_t limit) {
    CharacterRun run;
    auto& at = run.bytes;
    while (at + 1 < text.size() && run.count < limit && isAscii(text[at]) && isAscii(text[at + 1])) {
        at += text[at] == '\r' && text[at + 1] == '\n' ? 2 : 1;
        ++run.count;
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
        if (const auto ascii = asciiStart(text.substr(at), limit - run.count); ascii.count > 0) {
            at += ascii.bytes;
            run.count += ascii.count;
            continue;
        }
        if (const auto end = plainCharacterEnd(text, at)) {
            at = end;
            ++run.count;
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
        } while (at < text.size() && run.count < limit && plainCharacterEnd(text, at) == 0);
    }
    return run;
}

bool isCharacterBoundary(std::string_view text, std::size_t at) {
    if (at == 0 || at >= text.size()) {
        return true;
    }
    std::size_t from = at > BOUNDARY_CONTEXT_BYTES ? previousCodePoint(text, at - BOUNDARY_CONTEXT_BYTES) : 0;
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
    std::size_t lines = 0;
    bool isBlank = true;
    for (std::size_t at = 0; at < text.size();) {
        const auto c = nextCodePoint(text, at);
        if (isNewline(c)) {
            isBlank = true;
        } else if (isBlank && !isSpaceOrTab(c)) {
            isBlank = false;
            ++lines;
        }
    }
    return lines;
}

} // namespace zamber
