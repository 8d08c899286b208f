// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LinkDetector.h"

#include <QMap>

#include <algorithm>

namespace zamber {

/// Knows the links that a test has told it, wherever they stand in a text; told of none, it takes "https://" or
/// "mailto:" and what follows up to the next blank for one. Counts how often it is asked.
class FakeLinkDetector final : public LinkDetector {
public:
    /// Address by text.
    QMap<QString, QUrl> links;
    int questions = 0;
    qsizetype longestQuestion = 0;
    /// Answers with links that lead nowhere.
    bool withoutAddress = false;

    std::optional<DetectedLink> firstLink(const QString& text) override {
        ++questions;
        longestQuestion = std::max(longestQuestion, text.size());
        return links.isEmpty() ? linkWithScheme(text) : knownLink(text);
    }

private:
    std::optional<DetectedLink> knownLink(const QString& text) const {
        std::optional<DetectedLink> first;
        for (const auto& [link, address] : links.asKeyValueRange()) {
            const qsizetype start = text.indexOf(link);
            if (start >= 0 && (!first || start < first->start)) {
                first = DetectedLink{.start = start, .length = link.size(), .address = address};
            }
        }
        return first;
    }

    std::optional<DetectedLink> linkWithScheme(const QString& text) const {
        for (const QString& scheme : {QStringLiteral("https://"), QStringLiteral("mailto:")}) {
            const qsizetype start = text.indexOf(scheme);
            if (start >= 0) {
                qsizetype end = start;
                while (end < text.size() && !text[end].isSpace()) {
                    ++end;
                }
                const QUrl address = withoutAddress ? QUrl() : QUrl(text.mid(start, end - start));
                return DetectedLink{.start = start, .length = end - start, .address = address};
            }
        }
        return std::nullopt;
    }
};

} // namespace zamber
