// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Search.h"

#include "text/ByteBlocks.h"
#include "text/CharacterEnds.h"
#include "text/NormalForm.h"

#include <QLocale>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zamber::clipboard {

namespace {

constexpr char16_t COMBINING_DOT_ABOVE = 0x0307;
constexpr char16_t DOTLESS_I = 0x0131;
constexpr std::size_t FOLDED_AT_ONCE_BYTES = 4096;
/// From so many bytes on, the C library's search for a text beats the one for its first byte.
constexpr std::size_t LONG_SEARCHED_BYTES = 5;

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

/// Folds by ICU what hangs together.
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

bool isAt(std::string_view text, std::string_view searched, std::size_t at) {
    std::size_t length = 0;
    while (length < searched.size() && text[at + length] == searched[length]) {
        ++length;
    }
    return length == searched.size();
}

/// Where the searched text, not empty, comes next from there on, byte for byte; the text's size when it does not.
std::size_t findText(std::string_view text, std::string_view searched, std::size_t from) {
    // Places that do not count often stand close together, and to ask the library costs more than to look.
    constexpr std::size_t CLOSE_BYTES = 16;
    constexpr std::size_t BYTES_A_TRY = 32;
    constexpr std::size_t FREE_TRIES = 16;
    if (text.size() < searched.size()) {
        return text.size();
    }
    const auto end = text.size() - searched.size() + 1;
    auto at = from;
    for (const auto closeEnd = std::min(end, from + CLOSE_BYTES); at < closeEnd; ++at) {
        if (isAt(text, searched, at)) {
            return at;
        }
    }
    // Nothing passes over a text as fast as the search for one byte, where that byte is rare.
    for (std::size_t tries = 0;
         searched.size() < LONG_SEARCHED_BYTES && at < end && tries < FREE_TRIES + (at - from) / BYTES_A_TRY;
         ++tries, ++at) {
        at = std::min(text.find(searched[0], at), end);
        if (at < end && isAt(text, searched, at)) {
            return at;
        }
    }
    if (at >= end) {
        return text.size();
    }
    const auto* found =
        static_cast<const char*>(::memmem(text.data() + at, text.size() - at, searched.data(), searched.size()));
    return found != nullptr ? static_cast<std::size_t>(found - text.data()) : text.size();
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
    if (text::findByte(view(text), 0, needsFolding) == view(text).size()) {
        return text;
    }
    QByteArray key;
    key.reserve(text.size() + text.size() / 8);
    text::NormalPieces pieces(view(text), FOLDED_AT_ONCE_BYTES);
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
    for (auto start = findText(key, searchedKey, 0); start < key.size();
         start = findText(key, searchedKey, start + 1)) {
        if (text::endsCharacter(key, start + searchedKey.size())) {
            return true;
        }
    }
    return false;
}

} // namespace zamber::clipboard
