// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "HistoryText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <string>

namespace zamber {

namespace {

/// The texts of the entries, an image's in brackets, pinned ones with a star; nothing when the file is refused.
std::optional<std::string> summary(std::string_view json) {
    const auto items = historyFromJson(json);
    if (!items) {
        return std::nullopt;
    }
    std::string result;
    for (const auto& item : *items) {
        const auto bytes = item.content.bytes().toStdString();
        result += (item.content.isImage() ? "[" + bytes + "]" : bytes) + (item.isPinned ? "* " : " ");
    }
    return result;
}

TEST(HistoryJson, HasTheFourKeysOfEachEntryInOrder) {
    const QList<ClipboardItem> items = {
        {ClipboardContent::text(" a\n"), 1700000000.25},
        {ClipboardContent::image("\xFF\xFE"), 3, true},
    };
    EXPECT_EQ(historyToJson(items), R"([{"type":"text","value":" a\n","timestamp":1700000000.25,"isPinned":false},)"
                                    R"({"type":"image","value":"//4=","timestamp":3,"isPinned":true}])");
    EXPECT_EQ(historyToJson({}), "[]");
}

TEST(HistoryJson, IsReadByAnotherReader) {
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

TEST(HistoryJson, EveryTimestampComesBackBitForBit) {
    for (const double timestamp : {0.0, -0.0, 0.1, 1767323045.5, 1767323045.1234567, -1e10, 1e300, 5e-324, 1.0 / 3.0,
                                   std::numeric_limits<double>::max(), std::nextafter(1767323045.5, 0.0)}) {
        const auto json = historyToJson({{ClipboardContent::text("x"), timestamp}});
        ASSERT_TRUE(json.has_value());
        const auto items = historyFromJson(json->toStdString());
        ASSERT_TRUE(items && items->size() == 1) << json->toStdString();
        EXPECT_EQ(std::bit_cast<std::uint64_t>(items->first().timestamp), std::bit_cast<std::uint64_t>(timestamp));
    }
}

TEST(HistoryJson, ATimeThatIsNoNumberCannotBeWritten) {
    EXPECT_EQ(historyToJson({{ClipboardContent::text("x"), std::nan("")}}), std::nullopt);
    EXPECT_EQ(historyToJson({{ClipboardContent::text("x"), HUGE_VAL}}), std::nullopt);
}

TEST(HistoryJson, ARecordWithoutPinStateOrWithATextThereLoadsUnpinned) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"a","timestamp":1},
        {"type":"text","value":"b","timestamp":1,"isPinned":"true"},
        {"type":"text","value":"c","timestamp":1,"isPinned":1},
        {"type":"text","value":"d","timestamp":1,"isPinned":null},
        {"type":"text","value":"e","timestamp":1,"isPinned":true},
        {"type":"text","value":"f","timestamp":1,"isPinned":false}])"),
              "a b c d e* f ");
}

TEST(HistoryJson, ARecordWithoutANumberForItsTimestampIsSkipped) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"a"},
        {"type":"text","value":"b","timestamp":"1"},
        {"type":"text","value":"c","timestamp":true},
        {"type":"text","value":"d","timestamp":null},
        {"type":"text","value":"e","timestamp":[1]},
        {"type":"text","value":"f","timestamp":1e999},
        {"type":"text","value":"g","timestamp":-1.5e3}])"),
              "g ");
}

TEST(HistoryJson, ARecordOfAnotherTypeIsSkippedWhileItsNeighboursLoad) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"a","timestamp":1},
        {"type":"file","value":"b","timestamp":1},
        {"type":"Text","value":"c","timestamp":1},
        {"type":7,"value":"d","timestamp":1},
        {"value":"e","timestamp":1},
        {},
        {"type":"text","timestamp":1},
        {"type":"text","value":7,"timestamp":1},
        {"type":"text","value":"h","timestamp":1}])"),
              "a h ");
}

TEST(HistoryJson, AnImageThatIsNoBase64IsSkippedWhileItsNeighboursLoad) {
    EXPECT_EQ(summary(R"([{"type":"image","value":"Zm9v","timestamp":1},
        {"type":"image","value":"Zm9v Zm9v","timestamp":1},
        {"type":"image","value":"Zm9v\n","timestamp":1},
        {"type":"image","value":"Zg","timestamp":1},
        {"type":"image","value":"!","timestamp":1},
        {"type":"image","value":null,"timestamp":1},
        {"type":"image","value":"YmFy","timestamp":1}])"),
              "[foo] [bar] ");
}

TEST(HistoryJson, EscapesInBase64AreUndoneFirst) {
    EXPECT_EQ(summary(R"([{"type":"image","value":"\/\/4\u003d","timestamp":1}])"), "[\xFF\xFE] ");
}

TEST(HistoryJson, UnknownKeysAndOrderDoNotMatterAndTheLastOfTwoCounts) {
    EXPECT_EQ(summary(R"([{"isPinned":true,"id":"x","more":{"type":"image","list":[1,{"a":2}]},"timestamp":1,
        "value":"first","value":"last","t\u0079pe":"text"}])"),
              "last* ");
}

TEST(HistoryJson, WhatIsNoArrayOfObjectsIsRefused) {
    for (const auto* json : {"",
                             "{}",
                             R"({"type":"text","value":"a","timestamp":1})",
                             "null",
                             "7",
                             "\"[]\"",
                             "[1]",
                             "[[]]",
                             "[null]",
                             "[\"a\"]",
                             R"([{"type":"text","value":"a","timestamp":1},2])",
                             R"([{"type":"text","value":"a","timestamp":1},])",
                             R"([{"type":"text","value":"a","timestamp":1}] x)",
                             R"([{"type":"text","value":"a","timestamp":1})",
                             R"([{"type":"text","value":"a","timestamp":1,}])",
                             R"([{"type" "text"}])",
                             R"([{7:1}])",
                             "[{]",
                             "[}",
                             "[{}",
                             "[{},",
                             "[{} {}]",
                             "\xFF\xFE[]",
                             "[{\"type\":\"text\",\"value\":\"a\xFF\",\"timestamp\":1}]"}) {
        EXPECT_EQ(historyFromJson(json), std::nullopt) << json;
    }
    EXPECT_EQ(summary("[]"), "");
    EXPECT_EQ(summary(" [ ] \n"), "");
    EXPECT_EQ(summary("[{}]"), "");
}

TEST(HistoryJson, AHalfWrittenFileIsRefusedWhereverItEnds) {
    const auto json =
        historyToJson({{ClipboardContent::text("a \"é\\"), 1.5}, {ClipboardContent::image("abc"), 2, true}})
            .value_or("")
            .toStdString();
    for (std::size_t length = 0; length < json.size(); ++length) {
        EXPECT_EQ(historyFromJson(json.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_TRUE(historyFromJson(json).has_value());
}

} // namespace

} // namespace zamber
