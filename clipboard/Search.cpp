// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Search.h"

#include "text/ByteBlocks.h"
#include "text/Characters.h"
#include "text/CodePoints.h"
#include "text/FoldedCharacters.h"
#include "text/NormalForm.h"

#include "clipboard/TextFinder.h"

#include <QLocale>

#include <unicode/uchar.h>

#include <array>

namespace zamber::clipboard {

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

/// Folds by ICU what hangs together.
void appendFoldedByIcu(QByteArray& key, std::string_view text, text::CaseFolding folding) {
    text::NormalPieces pieces(text);
    for (auto piece = pieces.next(); !piece.empty(); piece = pieces.next()) {
        auto apart = text::decomposed(icu::UnicodeString::fromUTF8(piece));
        if (folding == text::CaseFolding::Turkic) {
            apart = withTurkicI(apart);
        }
        apart.foldCase();
        text::decomposed(apart).toUTF8String(key);
    }
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

/// How much ASCII the text starts with that needs nothing but lower case.
std::size_t fastAsciiLength(std::string_view text, text::CaseFolding folding) {
    const unsigned char entangled = folding == text::CaseFolding::Turkic ? 'I' : 0x80;
    return text::findByte(text, 0, [entangled](unsigned char byte) {
        return static_cast<unsigned char>((byte >= 0x80) | (byte == entangled));
    });
}

bool isFastAsciiNext(std::string_view text, text::CaseFolding folding) {
    return fastAsciiLength(text.substr(0, text::BYTE_BLOCK), folding) == text::BYTE_BLOCK;
}

/// The end of the plain characters from there on, which are appended folded, and where the last of them starts in the
/// text and in the key. Ends before ASCII that goes faster, too.
struct PlainRun {
    std::size_t end;
    std::size_t lastStart;
    qsizetype keyOfLast;
};
PlainRun appendPlain(QByteArray& key, std::string_view text, std::size_t at, text::CaseFolding folding) {
    auto& characters = text::FoldedCharacters::of(folding);
    PlainRun run{at, at, key.size()};
    // In blocks: growing the key for each character takes longer than folding it.
    std::array<char, 1024> block; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
    std::size_t filled = 0;
    while (run.end < text.size()) {
        if (text[run.end] == ' ' && isFastAsciiNext(text.substr(run.end), folding)) {
            break;
        }
        auto after = run.end;
        const auto folded = characters.plain(text::nextCodePoint(text, after));
        if (folded.empty()) {
            break;
        }
        if (filled + folded.size() > block.size()) {
            key.append(block.data(), static_cast<qsizetype>(filled));
            filled = 0;
        }
        run.lastStart = run.end;
        run.keyOfLast = key.size() + static_cast<qsizetype>(filled);
        folded.copy(block.data() + filled, folded.size());
        filled += folded.size();
        run.end = after;
    }
    key.append(block.data(), static_cast<qsizetype>(filled));
    return run;
}

/// The end of what has to be folded together from a character on that is not plain.
std::size_t endOfEntangled(std::string_view text, std::size_t at, text::FoldedCharacters& characters) {
    while (at < text.size()) {
        auto after = at;
        if (!characters.plain(text::nextCodePoint(text, after)).empty()) {
            break;
        }
        at = after;
    }
    return at;
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
    const char32_t next = text::nextCodePoint(key, at);
    if (next < 0x80) {
        return true;
    }
    if (next == ZERO_WIDTH_JOINER || u_hasBinaryProperty(static_cast<UChar32>(next), UCHAR_GRAPHEME_EXTEND) != 0) {
        return false;
    }
    return !joinsWithWhatFollows(last) || text::isCharacterBoundary(key, end);
}

} // namespace

text::CaseFolding userCaseFolding() {
    const auto language = QLocale().language();
    const bool isTurkic = language == QLocale::Turkish || language == QLocale::Azerbaijani;
    return isTurkic ? text::CaseFolding::Turkic : text::CaseFolding::Common;
}

QByteArray makeSearchKey(const QByteArray& text, text::CaseFolding folding) {
    const auto needsFolding = [](unsigned char byte) {
        return static_cast<unsigned char>((byte >= 0x80) | ((byte >= 'A') & (byte <= 'Z')));
    };
    if (text::findByte(view(text), 0, needsFolding) == view(text).size()) {
        return text;
    }
    auto& characters = text::FoldedCharacters::of(folding);
    QByteArray key;
    key.reserve(text.size() + text.size() / 8);
    const auto all = view(text);
    for (std::size_t at = 0; at < all.size();) {
        const auto ascii = fastAsciiLength(all.substr(at), folding);
        if (ascii >= text::BYTE_BLOCK) {
            appendLowerCaseAscii(key, all.substr(at, ascii - 1)); // a mark may follow the last one
            at += ascii - 1;
        }
        const auto run = appendPlain(key, all, at, folding);
        at = run.end;
        if (const auto end = endOfEntangled(all, at, characters); end > at) {
            // What is not plain may change the character before it.
            key.truncate(run.keyOfLast);
            at = end;
            appendFoldedByIcu(key, all.substr(run.lastStart, at - run.lastStart), folding);
        }
    }
    key.squeeze();
    return key;
}

bool searchKeyContains(std::string_view key, std::string_view searchedKey) {
    if (searchedKey.empty()) {
        return true;
    }
    auto lastAt = text::previousCodePoint(searchedKey, searchedKey.size());
    const char32_t last = text::nextCodePoint(searchedKey, lastAt);
    for (auto start = findText(key, searchedKey, 0); start < key.size();
         start = findText(key, searchedKey, start + 1)) {
        if (endsCharacter(key, start + searchedKey.size(), last)) {
            return true;
        }
    }
    return false;
}

} // namespace zamber::clipboard
