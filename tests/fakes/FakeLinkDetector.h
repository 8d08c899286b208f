// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LinkDetector.h"

#include <QMap>

namespace zamber {

/// Knows the links that a test has told it, wherever they stand in a text.
class FakeLinkDetector final : public LinkDetector {
public:
    /// Address by text.
    QMap<QString, QUrl> links;
    int questions = 0;

    std::optional<DetectedLink> firstLink(const QString& text) override {
        ++questions;
        std::optional<DetectedLink> first;
        for (const auto& [link, address] : links.asKeyValueRange()) {
            const qsizetype start = text.indexOf(link);
            if (start >= 0 && (!first || start < first->start)) {
                first = DetectedLink{.start = start, .length = link.size(), .address = address};
            }
        }
        return first;
    }
};

} // namespace zamber
