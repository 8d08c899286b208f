// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/FoldedCharacters.h"

#include "text/NormalForm.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <string>

namespace zamber::text {

namespace {

/// The basic plane, where the letters of texts are.
constexpr std::size_t CHARACTERS = 0x10000;

bool isStarter(UChar32 codePoint) {
    return u_getCombiningClass(codePoint) == 0;
}

} // namespace

FoldedCharacters& FoldedCharacters::of(CaseFolding folding) {
    if (folding == CaseFolding::Turkic) {
        static thread_local FoldedCharacters turkic(CaseFolding::Turkic);
        return turkic;
    }
    static thread_local FoldedCharacters common(CaseFolding::Common);
    return common;
}

FoldedCharacters::FoldedCharacters(CaseFolding folding)
    : m_folding(folding)
    , m_entries(CHARACTERS) {}

void FoldedCharacters::fill(char32_t codePoint, Entry& entry) const {
    entry.length = 0;
    const auto character = static_cast<UChar32>(codePoint);
    if (U_IS_SURROGATE(character) || !isStarter(character)) {
        return;
    }
    const auto apart = decomposed(icu::UnicodeString(character));
    if (m_folding == CaseFolding::Turkic && apart.indexOf(u'I') >= 0) {
        return; // what it becomes hangs on the dot that may follow
    }
    auto folded = apart;
    folded = decomposed(folded.foldCase());
    std::string bytes;
    folded.toUTF8String(bytes);
    if (isStarter(apart.char32At(0)) && isStarter(folded.char32At(0)) && bytes.size() <= sizeof entry.bytes) {
        std::ranges::copy(bytes, entry.bytes);
        entry.length = static_cast<std::uint8_t>(bytes.size());
    }
}

} // namespace zamber::text
