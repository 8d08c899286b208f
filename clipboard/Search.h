// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardContent.h"

#include <QByteArray>

#include <atomic>
#include <string_view>

namespace zamber::clipboard {

/// The folding that the user's locale asks for.
text::CaseFolding userCaseFolding();

/// Makes a text (UTF-8) ready to be searched, or to be searched for: folded by Unicode's full case folding and
/// decomposed canonically. Diacritics, width and punctuation stay significant. A text that is that way already is
/// shared, not copied. May be called from any thread; breaks off, with a key of no use, when it is told to stop.
QByteArray makeSearchKey(const QByteArray& text, text::CaseFolding folding);
QByteArray makeSearchKey(const QByteArray& text, text::CaseFolding folding, const std::atomic<bool>& isStopped);

/// Does the one text contain the other, both given by their keys? A hit counts only when it ends where a
/// user-perceived character ends: "e" is not found in "é". Each place that is looked at takes the same time, whatever
/// the text is.
bool searchKeyContains(std::string_view key, std::string_view searchedKey);

} // namespace zamber::clipboard
