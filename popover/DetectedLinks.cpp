// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/DetectedLinks.h"

#include "text/Characters.h"

#include "platform/LinkDetector.h"

#include <QSet>

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

std::optional<QUrl> DetectedLinks::in(const clipboard::ClipboardItem& item) {
    if (m_detector == nullptr || item.content.isImage()) {
        return std::nullopt;
    }
    const auto known = m_found.constFind(item.id);
    return known != m_found.constEnd() ? *known : *m_found.insert(item.id, detectedUrl(item.content, *m_detector));
}

void DetectedLinks::keepOnly(const QList<clipboard::ClipboardItem>& items) {
    if (m_found.isEmpty()) {
        return;
    }
    QSet<QUuid> kept;
    for (const clipboard::ClipboardItem& item : items) {
        kept.insert(item.id);
    }
    m_found.removeIf([&kept](const auto& entry) { return !kept.contains(entry.key()); });
}

} // namespace zamber::popover
