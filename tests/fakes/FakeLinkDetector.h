// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LinkDetector.h"

namespace zamber {

/// Takes "https://" or "mailto:" and what follows up to the next blank for a link, and counts how often it is asked.
class FakeLinkDetector final : public LinkDetector {
public:
    int questions = 0;
    qsizetype longestQuestion = 0;
    /// Answers with links that lead nowhere.
    bool withoutAddress = false;

    std::optional<DetectedLink> firstLink(const QString& text) override {
        ++questions;
        longestQuestion = std::max(longestQuestion, text.size());
        for (const QString& scheme : {QStringLiteral("https://"), QStringLiteral("mailto:")}) {
            const qsizetype start = text.indexOf(scheme);
            if (start >= 0) {
                qsizetype end = start;
                while (end < text.size() && !text[end].isSpace()) {
                    ++end;
                }
                const QUrl address = withoutAddress ? QUrl() : QUrl(text.mid(start, end - start));
                return DetectedLink{start, end - start, address};
            }
        }
        return std::nullopt;
    }
};

} // namespace zamber
