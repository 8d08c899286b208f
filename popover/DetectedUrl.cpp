// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/DetectedUrl.h"

#include "text/Characters.h"

#include "platform/LinkDetector.h"

#include <string_view>

namespace zamber::popover {

namespace {

constexpr std::size_t SHORT_TEXT_CHARACTERS = 200;
/// A long text is a link only if this much of its beginning is one.
constexpr qsizetype BEGINNING_UNITS = 2048;
/// How much may seem to be missing at the end of a link that was cut there: punctuation, an unclosed bracket.
constexpr qsizetype CUT_UNITS = 64;

bool isAllLink(const std::optional<DetectedLink>& link, const QString& text, qsizetype tolerance) {
    return link && link->start == 0 && link->length >= text.size() - tolerance;
}

} // namespace

std::optional<QUrl> detectedUrl(const clipboard::ClipboardContent& content, LinkDetector& detector) {
    if (content.isImage()) {
        return std::nullopt;
    }
    const QByteArray& utf8 = content.bytes();
    const std::string_view whole(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    const std::string_view inner = text::trimmed(whole);
    const bool isShort = text::countCharacters(inner, SHORT_TEXT_CHARACTERS).count < SHORT_TEXT_CHARACTERS;
    if (!isShort) {
        // A link has no blanks, and megabytes are not searched for a link that cannot be in them.
        const QString beginning = QString::fromUtf8(utf8.first(std::min(utf8.size(), BEGINNING_UNITS)));
        if (inner.size() != whole.size() || !isAllLink(detector.firstLink(beginning), beginning, CUT_UNITS)) {
            return std::nullopt;
        }
    }
    const QString text = QString::fromUtf8(utf8);
    const std::optional<DetectedLink> link = detector.firstLink(text);
    const bool isAccepted = link && (isShort || link->length == text.size());
    return isAccepted && !link->address.isEmpty() ? std::optional(link->address) : std::nullopt;
}

} // namespace zamber::popover
