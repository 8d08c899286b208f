// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Preview.h"

#include "text/Characters.h"

namespace zamber::clipboard {

namespace {

constexpr std::size_t PREVIEW_CHARACTERS = 150;
constexpr qsizetype MASK_BULLETS = 12;

} // namespace

QString textPreview(std::string_view utf8) {
    const auto visible = text::trimmed(utf8);
    const auto start = text::countCharacters(visible, PREVIEW_CHARACTERS);
    auto preview = QString::fromUtf8(visible.data(), static_cast<qsizetype>(start.bytes));
    return start.bytes < visible.size() ? preview + u'…' : preview;
}

QString maskedPreview() {
    return QString(MASK_BULLETS, u'●');
}

} // namespace zamber::clipboard
