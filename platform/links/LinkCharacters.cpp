// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/links/LinkCharacters.h"

#include <QChar>

#include <string_view>

namespace zamber::links {

namespace {

constexpr char32_t FIRST_BEYOND_ASCII = 0x80;
constexpr char32_t MIDDLE_DOT = 0xB7;
constexpr char32_t EM_DASH = 0x2014;
constexpr char32_t HORIZONTAL_BAR = 0x2015;
constexpr char32_t ZERO_WIDTH_NON_JOINER = 0x200C;
constexpr char32_t ZERO_WIDTH_JOINER = 0x200D;
constexpr char32_t KATAKANA_MIDDLE_DOT = 0x30FB;

bool isAsciiAlphanumeric(char32_t character) {
    return (character >= U'a' && character <= U'z') || (character >= U'A' && character <= U'Z') ||
           (character >= U'0' && character <= U'9');
}

bool isOneOf(char32_t character, std::u32string_view set) {
    return set.contains(character);
}

} // namespace

bool isNameCharacter(char32_t character) {
    if (character < FIRST_BEYOND_ASCII) {
        return isAsciiAlphanumeric(character);
    }
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

bool isOfUnspacedScript(char32_t character) {
    if (character < FIRST_BEYOND_ASCII) {
        return false;
    }
    switch (QChar::script(character)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Bopomofo:
    case QChar::Script_Hangul:
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
        return true;
    default:
        return false;
    }
}

bool endsAddress(char32_t character) {
    if (character < FIRST_BEYOND_ASCII) {
        return character <= U' ' || character == 0x7F || isOneOf(character, U"\"<>\\^`|");
    }
    switch (character) {
    case MIDDLE_DOT: // both stand inside names, and so in the paths of encyclopedias
    case KATAKANA_MIDDLE_DOT:
    case ZERO_WIDTH_NON_JOINER:
    case ZERO_WIDTH_JOINER:
        return false;
    case EM_DASH:
    case HORIZONTAL_BAR:
        return true;
    default:
        break;
    }
    switch (QChar::category(character)) {
    case QChar::Separator_Space:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_NotAssigned:
    case QChar::Punctuation_Open:
    case QChar::Punctuation_Close:
    case QChar::Punctuation_InitialQuote:
    case QChar::Punctuation_FinalQuote:
    case QChar::Punctuation_Other:
        return true;
    default:
        return false;
    }
}

bool isMailPunctuation(char32_t character) {
    return isOneOf(character, U"._%+-'&~!#$*");
}

bool isUserInformation(char32_t character) {
    return isNameCharacter(character) || isOneOf(character, U"-._~%!$&'*+,;=:");
}

} // namespace zamber::links
