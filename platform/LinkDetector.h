// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace zamber {

/// A link inside a text: where it stands, in UTF-16 units, and where it leads.
struct DetectedLink {
    qsizetype start = 0;
    qsizetype length = 0;
    QUrl address;
};

/// Finds what people would call a link in a text: web and mail addresses, with or without a scheme.
class LinkDetector {
public:
    virtual ~LinkDetector() = default;

    /// The first link in the text, or nothing.
    virtual std::optional<DetectedLink> firstLink(const QString& text) = 0;
};

} // namespace zamber
