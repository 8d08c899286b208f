// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/DetectedUrl.h"

#include "text/Characters.h"

#include "platform/LinkDetector.h"

#include <string_view>

namespace zamber::popover {

namespace {

constexpr std::size_t SHORT_TEXT_CHARACTERS = 200;
/// A long text that does not begin with so much of a link is none, however long it goes on.
constexpr qsizetype BEGINNING_UNITS = 2048;
/// What a link may seem to lack at its end because it is cut there: punctuation, an unclosed bracket.
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
        // Blanks are in no link; and nobody wants megabytes searched for one that cannot be there.
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
