// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Search.h"

#include "clipboard/Characters.h"
#include "clipboard/CodePoints.h"
#include "clipboard/NormalForm.h"

#include <QLocale>

#include <string.h> // NOLINT(modernize-deprecated-headers): memmem is POSIX's, not the language's
#include <unicode/uchar.h>

#include <algorithm>

namespace zamber {

namespace {

constexpr char32_t COMBINING_GRAPHEME_JOINER = 0x034F;
constexpr char32_t ZERO_WIDTH_JOINER = 0x200D;
constexpr char16_t COMBINING_DOT_ABOVE = 0x0307;
constexpr char16_t DOTLESS_I = 0x0131;
constexpr int VIRAMA_COMBINING_CLASS = 9;

bool isUpperCaseAscii(char c) {
    return c >= 'A' && c <= 'Z';
}

std::string_view view(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// I with a dot, which is always decomposed here, becomes i; I without one becomes ı.
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

void appendFolded(QByteArray& key, std::string_view piece, CaseFolding folding) {
    const auto needsIcu =
        !NormalPieces::isAscii(piece) || (folding == CaseFolding::Turkic && piece.find('I') != std::string_view::npos);
    if (!needsIcu) {
        const auto start = key.size();
        key.append(piece.data(), static_cast<qsizetype>(piece.size()));
        std::transform(key.begin() + start, key.end(), key.begin() + start,
                       [](char c) { return isUpperCaseAscii(c) ? static_cast<char>(c + ('a' - 'A')) : c; });
        return;
    }
    auto text = decomposed(icu::UnicodeString::fromUTF8(piece));
    if (folding == CaseFolding::Turkic) {
        text = withTurkicI(text);
    }
    text.foldCase();
    decomposed(text).toUTF8String(key);
}

bool joinsWithWhatFollows(char32_t c) {
    return c == COMBINING_GRAPHEME_JOINER || c == ZERO_WIDTH_JOINER || (c >= 0x1100 && c <= 0x11FF) ||
           u_getCombiningClass(static_cast<UChar32>(c)) == VIRAMA_COMBINING_CLASS;
}

/// `last` is the code point before `end`.
bool endsCharacter(std::string_view key, std::size_t end, char32_t last) {
    if (end == key.size()) {
        return true;
    }
    auto at = end;
    const char32_t next = nextCodePoint(key, at);
    if (next < 0x80) {
        return true;
    }
    if (next == ZERO_WIDTH_JOINER || u_hasBinaryProperty(static_cast<UChar32>(next), UCHAR_GRAPHEME_EXTEND) != 0) {
        return false;
    }
    return !joinsWithWhatFollows(last) || isCharacterBoundary(key, end);
}

} // namespace

CaseFolding userCaseFolding() {
    const auto language = QLocale().language();
    const bool isTurkic = language == QLocale::Turkish || language == QLocale::Azerbaijani;
    return isTurkic ? CaseFolding::Turkic : CaseFolding::Common;
}

QByteArray makeSearchKey(const QByteArray& text, CaseFolding folding) {
    if (NormalPieces::isAscii(view(text)) && std::ranges::none_of(text, isUpperCaseAscii)) {
        return text;
    }
    QByteArray key;
    key.reserve(text.size());
    NormalPieces pieces(view(text));
    for (auto piece = pieces.next(); !piece.empty(); piece = pieces.next()) {
        appendFolded(key, piece, folding);
    }
    return key;
}

bool searchKeyContains(std::string_view key, std::string_view searchedKey) {
    if (searchedKey.empty()) {
        return true;
    }
    auto lastAt = previousCodePoint(searchedKey, searchedKey.size());
    const char32_t last = nextCodePoint(searchedKey, lastAt);
    for (std::size_t from = 0; from < key.size();) {
        const auto* hit = static_cast<const char*>(
            memmem(key.data() + from, key.size() - from, searchedKey.data(), searchedKey.size()));
        if (hit == nullptr) {
            return false;
        }
        const auto start = static_cast<std::size_t>(hit - key.data());
        if (endsCharacter(key, start + searchedKey.size(), last)) {
            return true;
        }
        from = start + 1;
    }
    return false;
}

} // namespace zamber
