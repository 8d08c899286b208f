// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "text/CaseFolding.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace zamber::text {

/// What single characters become in a search key, asked of ICU once each. A character that can be folded without
/// looking at its neighbours is "plain": it neither combines with what stands before it nor changes its order.
class FoldedCharacters {
public:
    /// The one of this thread.
    static FoldedCharacters& of(CaseFolding folding);

    explicit FoldedCharacters(CaseFolding folding);

    /// The character's piece of the key, in UTF-8. Empty when the character is not plain.
    std::string_view plain(char32_t codePoint) {
        if (codePoint >= m_entries.size()) {
            return {};
        }
        auto& entry = m_entries[codePoint];
        if (entry.length == UNKNOWN) {
            fill(codePoint, entry);
        }
        return {entry.bytes, entry.length};
    }

private:
    static constexpr std::uint8_t UNKNOWN = 255;

    struct Entry {
        std::uint8_t length = UNKNOWN;
        char bytes[15] = {};
    };

    void fill(char32_t codePoint, Entry& entry) const;

    CaseFolding m_folding;
    std::vector<Entry> m_entries;
};

} // namespace zamber::text
