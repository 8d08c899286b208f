// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LinkDetector.h"

#include <QStringView>

#include <optional>

namespace zamber::links {

/// One pass over a text for its first link. Three marks can make one: "://", an "@", and a name with dots. Each is
/// looked at where it stands, and text that turned out to be no link is not read again, so that the time grows with
/// the length of the text and no faster.
class LinkScan {
public:
    explicit LinkScan(QStringView text)
        : m_text(text) {}

    std::optional<DetectedLink> first();

private:
    struct Range {
        qsizetype start;
        qsizetype end;
    };

    std::optional<DetectedLink> linkWithScheme(qsizetype colon);
    std::optional<DetectedLink> mailAddress(qsizetype atSign);
    std::optional<DetectedLink> bareDomain(Range run);

    qsizetype startOfScheme(qsizetype colon);
    std::optional<qsizetype> endOfAuthority(qsizetype start, qsizetype from);
    std::optional<qsizetype> endOfPort(qsizetype colon);
    qsizetype endOfHostRun(qsizetype from);
    qsizetype endOfPath(qsizetype start, qsizetype from);
    qsizetype withoutTrailingPunctuation(qsizetype start, qsizetype least, qsizetype end);
    qsizetype startAfterUnspacedText(Range run);
    qsizetype endBeforeUnspacedText(Range run);
    Range withoutUnderscores(Range run);

    bool mayBeginDomain(qsizetype start);
    bool isInsideExpression(Range domain);
    bool belongsToMailAddress(qsizetype end);

    char16_t unit(qsizetype at) const;
    char32_t character(qsizetype at) const;
    char32_t characterBefore(qsizetype at) const;
    QStringView text(Range range) const { return m_text.sliced(range.start, range.end - range.start); }
    std::optional<DetectedLink> link(Range range, const QUrl& address);

    QStringView m_text;
    /// Where the scan goes on when an address was read to its end and was no link after all.
    qsizetype m_scannedTo = 0;
    /// Where the last look ahead has met an @.
    qsizetype m_nextMailSign = -1;
};

} // namespace zamber::links
