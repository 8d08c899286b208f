// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Measuring.h"

#include "clipboard/Base64.h"
#include "clipboard/HistoryReader.h"
#include "clipboard/HistoryWriter.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <boost/json/parse.hpp>
#include <string>

namespace zamber::bench {

namespace {

/// Each of the readers ends with the entries in memory, the images decoded by the same library.
std::size_t readByOurs(const std::string& text) {
    const auto items = clipboard::readHistoryJson([rest = std::string_view(text)](char* to, std::size_t size) mutable {
        const auto piece = rest.substr(0, size);
        std::ranges::copy(piece, to);
        rest.remove_prefix(piece.size());
        return piece.size();
    });
    return items ? static_cast<std::size_t>(items->size()) : 0;
}

QList<QByteArray> decoded(bool isImage, std::string_view value) {
    return {isImage ? clipboard::fromBase64(value).value_or(QByteArray())
                    : QByteArray(value.data(), static_cast<qsizetype>(value.size()))};
}

std::size_t readByBoostsTree(const std::string& text) {
    const auto tree = boost::json::parse(text);
    QList<QByteArray> items;
    for (const auto& record : tree.as_array()) {
        const auto& object = record.as_object();
        items += decoded(object.at("type").as_string() == "image", object.at("value").as_string());
    }
    return static_cast<std::size_t>(items.size());
}

std::size_t readByQt(const std::string& text) {
    const auto document =
        QJsonDocument::fromJson(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
    QList<QByteArray> items;
    const auto records = document.array();
    for (const auto& record : records) {
        const auto object = record.toObject();
        const auto value = object[QStringLiteral("value")].toString().toUtf8();
        items += decoded(object[QStringLiteral("type")].toString() == QStringLiteral("image"),
                         {value.constData(), static_cast<std::size_t>(value.size())});
    }
    return static_cast<std::size_t>(items.size());
}

std::string jsonOf(const QList<clipboard::ClipboardItem>& items) {
    std::string text;
    clipboard::writeHistoryJson(items, [&](std::string_view block) {
        text += block;
        return true;
    });
    return text;
}

std::string withEscapedSlashes(const std::string& text) {
    std::string escaped;
    escaped.reserve(text.size() + text.size() / 32);
    for (const char c : text) {
        escaped.append(c == '/' ? 1 : 0, '\\').push_back(c);
    }
    return escaped;
}

void measure(const std::string& what, double bytes, const std::string& text) {
    const auto times = shortestTimes(
        3, [&] { benchmark::DoNotOptimize(readByOurs(text)); },
        [&] { benchmark::DoNotOptimize(readByBoostsTree(text)); }, [&] { benchmark::DoNotOptimize(readByQt(text)); });
    const char* const readers[] = {"ours", "Boost.JSON's tree", "QJsonDocument"};
    for (std::size_t reader = 0; reader < times.size(); ++reader) {
        note("reading " + what + ": " + readers[reader], times[reader] * 1000, "ms",
             std::to_string(bytes / 1e9 / times[reader]) + " GB/s");
    }
}

} // namespace

void measureHistoryReaders() {
    {
        const auto pictures = pictureHistory(50, 2'000'000);
        const auto bytes = static_cast<double>(bytesOf(pictures));
        const auto text = jsonOf(pictures);
        measure("50 images of 2 MB", bytes, text);
        measure("the same with each slash written as \\/", bytes, withEscapedSlashes(text));
    }
    const auto texts = textHistory(50, 1'000'000, Letters::Mixed);
    measure("50 texts of 1 MB, letters of many scripts", static_cast<double>(bytesOf(texts)), jsonOf(texts));
    const auto shortTexts = textHistory(10'000, 50);
    measure("10,000 texts of 50 B", static_cast<double>(bytesOf(shortTexts)), jsonOf(shortTexts));
}

} // namespace zamber::bench
