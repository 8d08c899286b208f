// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/Utf8.h"

#include "clipboard/HistoryReader.h"
#include "clipboard/HistoryWriter.h"

#include <QJsonDocument>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace zamber;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool isSame(const clipboard::ClipboardItem& left, const clipboard::ClipboardItem& right) {
    return left.content.isImage() == right.content.isImage() && left.content.bytes() == right.content.bytes() &&
           left.isPinned == right.isPinned &&
           std::bit_cast<std::uint64_t>(left.timestamp) == std::bit_cast<std::uint64_t>(right.timestamp);
}

void requireSame(const std::optional<QList<clipboard::ClipboardItem>>& left,
                 const std::optional<QList<clipboard::ClipboardItem>>& right) {
    require(left.has_value() == right.has_value());
    require(!left || std::ranges::equal(*left, *right, isSame));
}

/// Read by so many bytes at a time.
std::optional<QList<clipboard::ClipboardItem>> historyFrom(std::string_view text,
                                                           std::size_t step = std::string_view::npos) {
    return clipboard::readHistoryJson([text, step](char* to, std::size_t size) mutable {
        const auto piece = text.substr(0, std::min(step, size));
        std::ranges::copy(piece, to);
        text.remove_prefix(piece.size());
        return piece.size();
    });
}

std::string written(const QList<clipboard::ClipboardItem>& items) {
    std::string json;
    require(clipboard::writeHistoryJson(items, [&](std::string_view block) {
        json += block;
        return true;
    }));
    require(clipboard::historyJsonSize(items) == static_cast<std::int64_t>(json.size()));
    return json;
}

} // namespace

/// Any bytes as a history file: read alike however they come, and what was loaded is saved so that it loads the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto items = historyFrom(text);
    requireSame(items, historyFrom(text, 1 + size % 7));
    if (items) {
        const auto json = written(*items);
        requireSame(items, historyFrom(json));
        // Another reader agrees that it is JSON.
        require(QJsonDocument::fromJson(QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size())))
                    .isArray());
    }
    // The same bytes as a copied text and as a copied image.
    const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
    const QList<zamber::clipboard::ClipboardItem> copied = {
        {zamber::clipboard::ClipboardContent::text(bytes), 1.5},
        {zamber::clipboard::ClipboardContent::image(bytes), 2, true}};
    const auto loaded = historyFrom(written(copied));
    require(loaded && loaded->size() == 2);
    require(loaded->at(0).content.bytes() == zamber::text::repairedUtf8(bytes));
    require(loaded->at(1).content.bytes() == bytes);
    return 0;
}
