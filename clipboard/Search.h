// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardContent.h"

#include <QByteArray>

#include <atomic>
#include <string_view>

namespace zamber::clipboard {

/// The case folding of the user's locale: Turkic for Turkish and Azerbaijani, else the common one.
text::CaseFolding userCaseFolding();

/// The search key of a text (UTF-8), made for the texts of the history as well as for the searched one: folded by
/// Unicode's full case folding and decomposed canonically. Diacritics, width and punctuation stay significant. A text
/// that equals its key is shared, not copied. May be called from any thread. Once `isStopped` is set, the rest of the
/// text is left out and the key is of no use.
QByteArray makeSearchKey(const QByteArray& text, text::CaseFolding folding);
QByteArray makeSearchKey(const QByteArray& text, text::CaseFolding folding, const std::atomic<bool>& isStopped);

/// Does the text with the first key contain the text with the second one? A match counts only when it ends where a
/// user-perceived character ends: "e" is not found in "é". Each place in the key takes the same time, whatever the
/// texts are, so that no entry of the history can slow the search down.
bool searchKeyContains(std::string_view key, std::string_view searchedKey);

} // namespace zamber::clipboard
