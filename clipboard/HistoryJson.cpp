// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"
#include "clipboard/HistoryFile.h"
#include "clipboard/JsonScanner.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zamber {

namespace {

using Kind = JsonValue::Kind;

struct Record {
    std::optional<JsonValue> type;
    std::optional<JsonValue> value;
    std::optional<JsonValue> timestamp;
    std::optional<JsonValue> isPinned;
};

/// Behind the opening brace; nothing when the object is broken.
std::optional<Record> readRecord(JsonScanner& json) {
    Record record;
    if (json.take('}')) {
        return record;
    }
    do {
        const auto key = json.value();
        if (!key || key->kind != Kind::String || !json.take(':')) {
            return std::nullopt;
        }
        const auto value = json.value();
        if (!value) {
            return std::nullopt;
        }
        const auto name = jsonText(key->raw);
        if (name == "type") {
            record.type = value;
        } else if (name == "value") {
            record.value = value;
        } else if (name == "timestamp") {
            record.timestamp = value;
        } else if (name == "isPinned") {
            record.isPinned = value;
        }
    } while (json.take(','));
    return json.take('}') ? std::optional(record) : std::nullopt;
}

std::optional<QByteArray> imageBytes(std::string_view rawString) {
    // Some writers escape the slash, which Base64 is full of.
    if (rawString.find('\\') == std::string_view::npos) {
        return fromBase64(rawString);
    }
    const auto text = jsonText(rawString);
    return fromBase64({text.constData(), static_cast<std::size_t>(text.size())});
}

std::optional<ClipboardItem> itemFrom(const Record& record) {
    if (!record.type || record.type->kind != Kind::String || !record.timestamp ||
        record.timestamp->kind != Kind::Number || !record.value || record.value->kind != Kind::String) {
        return std::nullopt;
    }
    const auto timestamp = jsonNumber(record.timestamp->raw);
    if (!timestamp) {
        return std::nullopt;
    }
    const bool isPinned = record.isPinned && record.isPinned->kind == Kind::True;
    const auto type = jsonText(record.type->raw);
    if (type == "text") {
        return ClipboardItem(ClipboardContent::text(jsonText(record.value->raw)), *timestamp, isPinned);
    }
    if (type == "image") {
        if (auto bytes = imageBytes(record.value->raw)) {
            return ClipboardItem(ClipboardContent::image(*std::move(bytes)), *timestamp, isPinned);
        }
    }
    return std::nullopt;
}

/// The shortest form that reads back as the same number.
void appendNumber(QByteArray& output, double number) {
    std::array<char, 512> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    output.append(digits.data(), result.ptr - digits.data());
}

} // namespace

std::optional<QList<ClipboardItem>> historyFromJson(std::string_view text) {
    JsonScanner json(text);
    if (!json.take('[')) {
        return std::nullopt;
    }
    QList<ClipboardItem> items;
    if (!json.take(']')) {
        do {
            const auto record = json.take('{') ? readRecord(json) : std::nullopt;
            if (!record) {
                return std::nullopt;
            }
            if (auto item = itemFrom(*record)) {
                items.append(*std::move(item));
            }
        } while (json.take(','));
        if (!json.take(']')) {
            return std::nullopt;
        }
    }
    return json.atEnd() ? std::optional(items) : std::nullopt;
}

std::optional<QByteArray> historyToJson(const QList<ClipboardItem>& items) {
    QByteArray json;
    qsizetype size = 2;
    for (const auto& item : items) {
        size += 128 + item.content.bytes().size() * (item.content.isImage() ? 4 : 3) / 3;
    }
    json.reserve(size);
    json.append('[');
    for (const auto& item : items) {
        if (!std::isfinite(item.timestamp)) {
            return std::nullopt;
        }
        const auto& bytes = item.content.bytes();
        json.append(json.size() > 1 ? ",{" : "{");
        if (item.content.isImage()) {
            json.append(R"("type":"image","value":")");
            appendBase64(json, bytes);
            json.append('"');
        } else {
            json.append(R"("type":"text","value":)");
            appendJsonString(json, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
        }
        json.append(R"(,"timestamp":)");
        appendNumber(json, item.timestamp);
        json.append(item.isPinned ? R"(,"isPinned":true})" : R"(,"isPinned":false})");
    }
    json.append(']');
    return json;
}

} // namespace zamber
