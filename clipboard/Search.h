// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardContent.h"

#include <QByteArray>

#include <string_view>

namespace zamber::clipboard {

/// The folding that the user's locale asks for.
text::CaseFolding userCaseFolding();

/// Makes a text (UTF-8) ready to be searched, or to be searched for: folded by Unicode's full case folding and
/// decomposed canonically. Diacritics, width and punctuation stay significant. A text that is that way already is
/// shared, not copied.
QByteArray makeSearchKey(const QByteArray& text, text::CaseFolding folding);

/// Does the one text contain the other, both given by their keys? A hit counts only when it ends where a
/// user-perceived character ends: "e" is not found in "é".
bool searchKeyContains(std::string_view key, std::string_view searchedKey);

} // namespace zamber::clipboard
