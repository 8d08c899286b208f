// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "HistoryText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <random>
#include <string>
#include <vector>

namespace zamber::clipboard {

namespace {

/// The texts of the entries, an image's in brackets, pinned ones with a star; nothing when the file is refused.
std::optional<std::string> summary(std::string_view json, std::size_t step) {
    const auto items = historyFromJson(json, step);
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

/// The same, with the text read at once and in small steps: all have to agree.
std::optional<std::string> summary(std::string_view json) {
    const auto result = summary(json, json.size());
    for (const std::size_t step : {1, 2, 3, 5, 64}) {
        EXPECT_EQ(summary(json, step), result) << json << " by " << step;
    }
    return result;
}

bool isRefused(std::string_view json) {
    return summary(json) == std::nullopt;
}

TEST(HistoryReader, ARecordWithoutPinStateOrWithATextThereLoadsUnpinned) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"a","timestamp":1},
        {"type":"text","value":"b","timestamp":1,"isPinned":"true"},
        {"type":"text","value":"c","timestamp":1,"isPinned":1},
        {"type":"text","value":"d","timestamp":1,"isPinned":null},
        {"type":"text","value":"e","timestamp":1,"isPinned":true},
        {"type":"text","value":"f","timestamp":1,"isPinned":false}])"),
              "a b c d e* f ");
}

TEST(HistoryReader, ARecordWithoutANumberForItsTimestampIsSkipped) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"a"},
        {"type":"text","value":"b","timestamp":"1"},
        {"type":"text","value":"c","timestamp":true},
        {"type":"text","value":"d","timestamp":null},
        {"type":"text","value":"e","timestamp":[1]},
        {"type":"text","value":"f","timestamp":1e999},
        {"type":"text","value":"g","timestamp":-1.5e3}])"),
              "g ");
}

TEST(HistoryReader, ARecordOfAnotherTypeIsSkippedWhileItsNeighboursLoad) {
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

TEST(HistoryReader, AnImageThatIsNoBase64IsSkippedWhileItsNeighboursLoad) {
    EXPECT_EQ(summary(R"([{"type":"image","value":"Zm9v","timestamp":1},
        {"type":"image","value":"Zm9v Zm9v","timestamp":1},
        {"type":"image","value":"Zm9v\n","timestamp":1},
        {"type":"image","value":"Zg","timestamp":1},
        {"type":"image","value":"!","timestamp":1},
        {"type":"image","value":null,"timestamp":1},
        {"type":"image","value":"YmFy","timestamp":1}])"),
              "[foo] [bar] ");
}

TEST(HistoryReader, EscapesInBase64AreUndoneFirst) {
    EXPECT_EQ(summary(R"([{"type":"image","value":"\/\/4\u003d","timestamp":1}])"), "[\xFF\xFE] ");
}

TEST(HistoryReader, ASlashIsTheSameWithABackslashAndWithoutButForOneAfterAnEscapedBackslash) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"\/a\/\/","timestamp":1},
        {"type":"text","value":"\\/b\\\/","timestamp":1},
        {"type":"text","value":"\n/c\"\/\u005c/","timestamp":1},
        {"ty\/pe":"image","type":"image","value":"\/\/\/\/","timestamp":1}])"),
              "/a// \\/b\\/ \n/c\"/\\/ [\xFF\xFF\xFF] ");
    EXPECT_TRUE(isRefused(R"([{"type":"text","value":"a","timestamp":1}]\/)"));
    EXPECT_TRUE(isRefused(R"([{"type":"text","value":"a","timestamp":1}]\)"));
    EXPECT_TRUE(isRefused(R"([\/{"type":"text","value":"a","timestamp":1}])"));
    EXPECT_TRUE(isRefused(R"([\/\/ a comment)"));
}

TEST(HistoryReader, ALongTextIsReadWholeWhereverItIsCut) {
    const std::string letters[] = {"a", "\u00E9", "\u4E00", "\U0001F600"};
    const std::string escapes[] = {R"(\n)", R"(\u00e9)", R"(\u4e00)", R"(\ud83d\ude00)"};
    const std::string escaped[] = {"\n", "\u00E9", "\u4E00", "\U0001F600"};
    std::mt19937 random(7);
    std::string json;
    std::string text;
    for (const std::size_t plain : {0, 1, 20'000}) {
        for (int at = 0; at < 3'000; ++at) {
            const auto kind = random() % std::size(letters);
            json += escapes[kind] + letters[kind];
            text += escaped[kind] + letters[kind];
        }
        json += std::string(plain, 'x');
        text += std::string(plain, 'x');
        for (int at = 0; at < 10'000; ++at) {
            const auto& letter = letters[random() % std::size(letters)];
            json += letter;
            text += letter;
        }
    }
    const auto file = R"([{"type":"text","value":")" + json + R"(","timestamp":1}])";
    for (std::size_t step = 4'085; step < 4'125; ++step) {
        const auto items = historyFromJson(file, step);
        ASSERT_TRUE(items && items->size() == 1) << step;
        ASSERT_TRUE(items->first().content.bytes().toStdString() == text) << step;
    }
}

TEST(HistoryReader, UnknownKeysAndOrderDoNotMatterAndTheLastOfTwoCounts) {
    EXPECT_EQ(summary(R"([{"isPinned":true,"id":"x","more":{"type":"image","list":[1,{"a":2}]},"timestamp":1,
        "value":"first","value":"last","t\u0079pe":"text"}])"),
              "last* ");
}

TEST(HistoryReader, TheLastOfTwoKeysCountsAlsoWhenItIsTheWorseOne) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"a","timestamp":1,"timestamp":"1"},
        {"type":"text","value":"b","timestamp":1,"value":null},
        {"type":"file","type":"text","value":"c","timestamp":1,"isPinned":true,"isPinned":false}])"),
              "c ");
}

TEST(HistoryReader, ASurrogatePairIsOneCharacterAndHalfAPairIsNoJson) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"\uD83D\uDE00\ud83d\ude00","timestamp":1}])"), "😀😀 ");
    for (const auto* half : {R"(a\uD83Db)", R"(\ude00)", R"(\uD83D\u0041)", R"(\uD83D\uD83D\uDE00)", R"(\uD83D\n)"}) {
        EXPECT_TRUE(isRefused(R"([{"type":"text","timestamp":1,"value":")" + std::string(half) + "\"}]")) << half;
    }
}

TEST(HistoryReader, AZeroByteIsPartOfATextWhenEscapedAndNoJsonWhenNot) {
    const auto items = historyFromJson(R"([{"type":"text","value":"a\u0000b","timestamp":1}])");
    ASSERT_TRUE(items && items->size() == 1);
    EXPECT_EQ(items->first().content.bytes(), QByteArray("a\0b", 3));
    EXPECT_EQ(historyFromJson(historyToJson(*items)->toStdString())->first().content.bytes(), QByteArray("a\0b", 3));
    EXPECT_EQ(summary(R"([{"type":"te\u0000xt","value":"a","timestamp":1}])"), "");
    const std::string good = R"([{"type":"text","value":"ab","timestamp":1}])";
    for (std::size_t at = 0; at <= good.size(); ++at) {
        auto broken = good;
        broken.insert(at, 1, '\0');
        EXPECT_EQ(historyFromJson(broken), std::nullopt) << at;
    }
}

TEST(HistoryReader, WhatIsNotUtf8IsNoJsonWhereverItStands) {
    for (const std::string broken : {"\xFF", "\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
        for (const auto& key : std::vector<std::string>{"value", "type", "unknown", "unk" + broken}) {
            const auto value = key == "type" ? "text" + broken : "a" + broken;
            const auto json = R"([{"type":"text","value":"a","timestamp":1,")" + key + R"(":")" + value + R"("}])";
            EXPECT_EQ(historyFromJson(json), std::nullopt) << json;
        }
    }
}

TEST(HistoryReader, ValuesMayBeNestedTo512AndNoDeeper) {
    const auto nested = [](int depth) {
        return R"([{"type":"text","value":"a","timestamp":1,"more":)" + std::string(depth, '[') +
               std::string(depth, ']') + "}]";
    };
    EXPECT_EQ(summary(nested(512)), "a ");
    EXPECT_EQ(historyFromJson(nested(513)), std::nullopt);
    EXPECT_EQ(historyFromJson(nested(5'000'000)), std::nullopt);
}

TEST(HistoryReader, AByteOrderMarkIsSkippedOnceAndAtTheStartAlone) {
    EXPECT_EQ(summary("\xEF\xBB\xBF[]"), "");
    EXPECT_EQ(historyFromJson("\xEF\xBB\xBF\xEF\xBB\xBF[]"), std::nullopt);
    EXPECT_EQ(historyFromJson(" \xEF\xBB\xBF[]"), std::nullopt);
    EXPECT_TRUE(isRefused("\xEF\xBB[]"));
    EXPECT_TRUE(isRefused("\xEF\xBB\xBF"));
    EXPECT_TRUE(isRefused("\xEF"));
    EXPECT_EQ(historyFromJson(std::string_view("\xFF\xFE[\0]\0", 6)), std::nullopt);
    EXPECT_EQ(historyFromJson(std::string_view("[\0]\0", 4)), std::nullopt);
}

TEST(HistoryReader, WhatFollowsTheArrayMayOnlyBeBlank) {
    const std::string good = R"([{"type":"text","value":"a","timestamp":1}])";
    EXPECT_EQ(summary(good + " \t\r\n"), "a ");
    for (const auto* more : {"x", "[]", ",", "]", "\xC2\xA0", "\v", "//", "1"}) {
        EXPECT_EQ(historyFromJson(good + more), std::nullopt) << more;
    }
    EXPECT_EQ(historyFromJson(good + std::string(1, '\0')), std::nullopt);
}

TEST(HistoryReader, AnyNumberIsATimestampAsTheNearestDouble) {
    const std::pair<const char*, double> rows[] = {
        {"0", 0.0},
        {"-0", -0.0},
        {"1767323045", 1767323045.0},
        {"9007199254740993", 9007199254740992.0},
        {"1e308", 1e308},
        {"1E-3", 0.001},
        {"0.1000000000000000055511151231257827", 0.1},
        {"123456789012345678901234567890", 123456789012345678901234567890.0}};
    for (const auto& [text, timestamp] : rows) {
        const auto items = historyFromJson(std::string(R"([{"type":"text","value":"a","timestamp":)") + text + "}]");
        ASSERT_TRUE(items && items->size() == 1) << text;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(items->first().timestamp), std::bit_cast<std::uint64_t>(timestamp))
            << text;
    }
}

TEST(HistoryReader, ANumberTooSmallForADoubleIsZeroAndOneTooLargeIsNoTimestamp) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"a","timestamp":1e-400},
        {"type":"text","value":"b","timestamp":-1e-9999},
        {"type":"text","value":"c","timestamp":1e400},
        {"type":"text","value":"d","timestamp":0.000000e-400},
        {"type":"text","value":"e","timestamp":0e99999}])"),
              "a b d e ");
    const auto items = historyFromJson(R"([{"type":"text","value":"a","timestamp":1e-400}])");
    ASSERT_TRUE(items && items->size() == 1);
    EXPECT_EQ(items->first().timestamp, 0.0);
    // A fraction may be as long as it likes.
    EXPECT_EQ(summary(R"([{"type":"text","value":"a","timestamp":0.)" + std::string(5000, '0') + R"(1}])"), "a ");
    EXPECT_EQ(summary(R"([{"type":"text","value":"a","timestamp":1)" + std::string(400, '0') + R"(}])"), "");
}

TEST(HistoryReader, NumbersAreReadAsTheyMustBeWritten) {
    for (const auto* number : {"0", "-0", "10", "1.5", "-1.25e10", "1E+2", "1e-2", "0.0"}) {
        EXPECT_EQ(summary(R"([{"type":"text","value":"a","timestamp":)" + std::string(number) + "}]"), "a ") << number;
        EXPECT_EQ(summary(R"([{"n":[)" + std::string(number) + "]}]"), "") << number;
    }
    for (const auto* number : {"01", "+1", ".5", "1.", "-", "1e", "1e+", "0x1", "NaN", "Infinity", "-a", "1.e2", "--1",
                               "nul", "True", "nulll", "'a'", "1 2"}) {
        EXPECT_TRUE(isRefused(R"([{"type":"text","value":"a","timestamp":)" + std::string(number) + "}]")) << number;
        EXPECT_TRUE(isRefused(R"([{"n":[)" + std::string(number) + "]}]")) << number;
    }
}

TEST(HistoryReader, StringsAreReadAsTheyMustBeWritten) {
    EXPECT_EQ(summary(R"([{"type":"text","value":"a\"b\\c\/d\b\f\n\r\t\u00e9\u20AC\u0041é🙂)"
                      "\x7F"
                      R"(","timestamp":1}])"),
              "a\"b\\c/d\b\f\n\r\té€Aé🙂\x7F ");
    for (const auto* stray : {R"(\x)", R"(\u12)", R"(\u12g4)", R"(\u+123)", R"(\)", "\n", "\x01", "\t", "\xFF"}) {
        for (std::size_t before = 0; before < 70; before += 3) {
            EXPECT_TRUE(
                isRefused(R"([{"type":"text","timestamp":1,"value":")" + std::string(before, 'x') + stray + "\"}]"))
                << stray;
            EXPECT_TRUE(isRefused(R"([{")" + std::string(before, 'x') + stray + "\":1}]")) << stray;
        }
    }
}

TEST(HistoryReader, AnEscapeMayStandAnywhereInALongString) {
    for (std::size_t before = 0; before < 100; ++before) {
        const std::pair<const char*, const char*> rows[] = {
            {R"(\/)", "/"}, {R"(\")", "\""}, {R"(\\)", "\\"}, {R"(\/\/\/)", "///"}, {R"(\/\u00e9\n)", "/é\n"}};
        for (const auto& [escape, character] : rows) {
            const auto start = std::string(before, 'x');
            EXPECT_EQ(
                summary(R"([{"type":"text","timestamp":1,"value":")" + start + escape + std::string(80, 'y') + "\"}]"),
                start + character + std::string(80, 'y') + " ");
        }
    }
}

TEST(HistoryReader, WhatIsNestedInAMemberIsNoMember) {
    EXPECT_EQ(summary(R"([{"type":"text","value":["no"],"value":"a","timestamp":1,"isPinned":[true]},
        {"type":"text","value":{"value":"b"},"timestamp":1},
        {"type":"text","value":"c","more":{"type":"image","value":"x","timestamp":"x","isPinned":true},"timestamp":1},
        {"type":["text"],"value":"d","timestamp":1},
        {"type":"text","value":"e","timestamp":{"timestamp":1}}])"),
              "a c ");
}

TEST(HistoryReader, HoldsNoMoreThanOneRecordBesidesTheEntries) {
    // A hundred megabytes of records that are left out, handed out with the same room each time.
    const std::string record = R"({"type":"file","value":")" + std::string(10'000, 'x') + R"(","timestamp":1},)";
    std::string text = "[";
    const char* lowest = nullptr;
    const char* highest = nullptr;
    std::size_t total = 0;
    int records = 10'000;
    const auto items = readHistoryJson([&](char* to, std::size_t size) {
        lowest = lowest == nullptr ? to : std::min<const char*>(lowest, to);
        highest = std::max<const char*>(highest, to + size);
        while (text.size() < size && records > 0) {
            text += --records > 0 ? record : "{}]";
        }
        const auto length = std::min(text.size(), size);
        std::copy_n(text.begin(), length, to);
        text.erase(0, length);
        total += length;
        return length;
    });
    EXPECT_TRUE(items && items->isEmpty());
    EXPECT_GT(total, 90'000'000U);
    EXPECT_LT(static_cast<std::size_t>(highest - lowest), 1'000'000U);
}

TEST(HistoryReader, WhatIsNoArrayOfObjectsIsRefused) {
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
                             "[[],{}]",
                             "[{},[]]",
                             "[{}]]",
                             "[{\"a\":1]",
                             "[{\"a\":[1}]",
                             "[{\"a\":1 \"b\":2}]",
                             "[{a:1}]",
                             "[{\"a\":}]",
                             "[{,}]",
                             "[true]",
                             "[ ,{}]",
                             "\xFF\xFE[]",
                             "[{\"type\":\"text\",\"value\":\"a\xFF\",\"timestamp\":1}]"}) {
        EXPECT_TRUE(isRefused(json)) << json;
    }
    EXPECT_EQ(summary("[]"), "");
    EXPECT_EQ(summary(" [ ] \n"), "");
    EXPECT_EQ(summary("[{}]"), "");
}

TEST(HistoryReader, AHalfWrittenFileIsRefusedWhereverItEnds) {
    const auto json =
        historyToJson({{ClipboardContent::text("a \"é\\"), 1.5}, {ClipboardContent::image("abc"), 2, true}})
            .value_or("")
            .toStdString();
    for (std::size_t length = 0; length < json.size(); ++length) {
        EXPECT_TRUE(isRefused(json.substr(0, length))) << length;
    }
    EXPECT_TRUE(historyFromJson(json).has_value());
}

} // namespace

} // namespace zamber::clipboard
