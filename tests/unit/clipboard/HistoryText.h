// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/HistoryJson.h"

#include <QByteArray>

#include <optional>
#include <string_view>

namespace zamber::clipboard {

/// The history in a text that is in memory.
inline std::optional<QList<ClipboardItem>> historyFromJson(std::string_view json) {
    return readHistoryJson(JsonScanner(json));
}

/// The whole text of the file.
inline std::optional<QByteArray> historyToJson(const QList<ClipboardItem>& items) {
    if (!historyJsonSize(items)) {
        return std::nullopt;
    }
    QByteArray json;
    writeHistoryJson(items, [&](std::string_view block) {
        json.append(block.data(), static_cast<qsizetype>(block.size()));
        return true;
    });
    return json;
}

} // namespace zamber::clipboard
