// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Search.h"

#include "text/ByteBlocks.h"
#include "text/ByteView.h"
#include "text/NormalForm.h"

#include <QLocale>

#include <cstdint>

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

} // namespace zamber::clipboard
