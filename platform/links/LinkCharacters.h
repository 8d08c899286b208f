// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>

namespace zamber::links {

/// How many UTF-16 units the character takes.
inline qsizetype unitsOf(char32_t character) {
    return QChar::requiresSurrogates(character) ? 2 : 1;
}

/// A letter, digit or combining mark of any script: what the names in a link are made of.
bool isNameCharacter(char32_t character);

/// Of a script that puts no blanks between words, so that a sentence may run into a link: Chinese, Japanese,
/// Korean (its particles), Thai, Lao, Khmer and Burmese.
bool isOfUnspacedScript(char32_t character);

/// Whether an address ends before the character: a blank, a control, a quotation mark, a bracket other than (), [] and
/// {}, or the punctuation of another script. RFC 3987 allows the latter, but in a text it belongs to the sentence.
bool endsAddress(char32_t character);

/// May stand in the local part of a mail address, between the name characters.
bool isMailPunctuation(char32_t character);

/// May stand before the @ of an authority (RFC 3986, userinfo), but for brackets.
bool isUserInformation(char32_t character);

} // namespace zamber::links
