// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "HistoryText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace zamber::clipboard {

namespace {

TEST(HistoryWriter, HasTheFourKeysOfEachEntryInOrder) {
    const QList<ClipboardItem> items = {
        {ClipboardContent::text(" a\n"), 1700000000.25},
        {ClipboardContent::image("\xFF\xFE"), 3, true},
    };
    EXPECT_EQ(historyToJson(items), R"([{"type":"text","value":" a\n","timestamp":1700000000.25,"isPinned":false},)"
                                    R"({"type":"image","value":"//4=","timestamp":3,"isPinned":true}])");
    EXPECT_EQ(historyToJson({}), "[]");
}

TEST(HistoryWriter, IsReadByAnotherReader) {
    const QByteArray text = "quote\" back\\slash / \t\r\n é 🙂 \x01";
    const auto json = historyToJson({{ClipboardContent::text(text), 0.1}});
    const auto document = QJsonDocument::fromJson(json.value_or(""));
    ASSERT_TRUE(document.isArray());
    const auto object = document.array().at(0).toObject();
    EXPECT_EQ(object.keys().size(), 4);
    EXPECT_EQ(object[QStringLiteral("value")].toString().toUtf8(), text);
    EXPECT_EQ(object[QStringLiteral("timestamp")].toDouble(), 0.1);
    EXPECT_TRUE(object[QStringLiteral("isPinned")].isBool());
}

TEST(HistoryWriter, EveryTimestampComesBackBitForBit) {
    for (const double timestamp : {0.0, -0.0, 0.1, 1767323045.5, 1767323045.1234567, -1e10, 1e300, 5e-324, 1.0 / 3.0,
                                   std::numeric_limits<double>::max(), std::nextafter(1767323045.5, 0.0)}) {
        const auto json = historyToJson({{ClipboardContent::text("x"), timestamp}});
        ASSERT_TRUE(json.has_value());
        const auto items = historyFromJson(json->toStdString());
        ASSERT_TRUE(items && items->size() == 1) << json->toStdString();
        EXPECT_EQ(std::bit_cast<std::uint64_t>(items->first().timestamp), std::bit_cast<std::uint64_t>(timestamp));
    }
}

TEST(HistoryWriter, ATimeThatIsNoNumberCannotBeWritten) {
    EXPECT_EQ(historyToJson({{ClipboardContent::text("x"), std::nan("")}}), std::nullopt);
    EXPECT_EQ(historyToJson({{ClipboardContent::text("x"), HUGE_VAL}}), std::nullopt);
}

TEST(HistoryWriter, RandomTimestampsComeBackBitForBit) {
    std::mt19937_64 random(20260102);
    for (int round = 0; round < 20'000; ++round) {
        const auto timestamp = std::bit_cast<double>(random());
        if (std::isfinite(timestamp)) {
            const auto items =
                historyFromJson(historyToJson({{ClipboardContent::text("x"), timestamp}})->toStdString());
            ASSERT_TRUE(items && items->size() == 1);
            ASSERT_EQ(std::bit_cast<std::uint64_t>(items->first().timestamp), std::bit_cast<std::uint64_t>(timestamp));
        }
    }
}

TEST(HistoryWriter, ComesInBlocksOfSomeMegabytesAndStopsWhenTheTakerHasEnough) {
    QByteArray text("\"\n\x01é");
    while (text.size() < 3'000'000) {
        text += text;
    }
    const QList<ClipboardItem> items = {{ClipboardContent::text(text), 1},
                                        {ClipboardContent::image(QByteArray(10'000'001, '\xFF')), 2},
                                        {ClipboardContent::text("\xFF" + text), 3}};
    std::string json;
    std::size_t largest = 0;
    int blocks = 0;
    EXPECT_TRUE(writeHistoryJson(items, [&](std::string_view block) {
        largest = std::max(largest, block.size());
        json += block;
        ++blocks;
        return true;
    }));
    EXPECT_GT(blocks, 3);
    EXPECT_LE(largest, std::size_t{4} << 20);
    EXPECT_EQ(historyJsonSize(items), static_cast<std::int64_t>(json.size()));
    const auto loaded = historyFromJson(json);
    ASSERT_TRUE(loaded && loaded->size() == 3);
    EXPECT_TRUE(loaded->at(0).content.bytes() == text);
    EXPECT_TRUE(loaded->at(1).content.bytes() == items[1].content.bytes());
    EXPECT_TRUE(loaded->at(2).content.bytes() == "\uFFFD" + text);

    int taken = 0;
    EXPECT_FALSE(writeHistoryJson(items, [&](std::string_view) { return ++taken < 2; }));
    EXPECT_EQ(taken, 2);
}

TEST(HistoryWriter, ASmallHistoryIsOneBlock) {
    QList<ClipboardItem> items;
    for (int i = 0; i < 1000; ++i) {
        items.append({ClipboardContent::text(QByteArray(1000, 'x')), 1.0 * i});
    }
    int blocks = 0;
    writeHistoryJson(items, [&](std::string_view) { return ++blocks > 0; });
    EXPECT_EQ(blocks, 1);
}

} // namespace

} // namespace zamber::clipboard
