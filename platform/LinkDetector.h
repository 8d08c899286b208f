// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace zamber {

/// A link in a text: where it stands, in UTF-16 units, and what it opens.
struct DetectedLink {
    qsizetype start;
    qsizetype length;
    QUrl address;
};

/// Finds what a reader would call a link.
class LinkDetector {
public:
    virtual ~LinkDetector() = default;

    /// The link that begins first, nothing when there is none. A web address without a scheme opens by http, a mail
    /// address by mailto. The range holds no white space and neither the punctuation nor the brackets around the
    /// link. The time is linear in the length of the text.
    virtual std::optional<DetectedLink> firstLink(const QString& text) = 0;
};

} // namespace zamber
