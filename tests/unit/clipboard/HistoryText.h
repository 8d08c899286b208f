// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/HistoryReader.h"
#include "clipboard/HistoryWriter.h"

#include <QByteArray>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>

namespace zamber::clipboard {

/// The history in a text that is in memory, handed out so many bytes at a time.
inline std::optional<QList<ClipboardItem>> historyFromJson(std::string_view json,
                                                           std::size_t step = std::numeric_limits<std::size_t>::max()) {
    return readHistoryJson([rest = json, step](char* to, std::size_t size) mutable {
        const auto piece = rest.substr(0, std::min(step, size));
        std::ranges::copy(piece, to);
        rest.remove_prefix(piece.size());
        return piece.size();
    });
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
