// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/JsonScanner.h"

#include "clipboard/JsonString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace zamber::clipboard {

namespace {

using Kind = JsonValue::Kind;

std::optional<Kind> kindOfOnly(JsonScanner json) {
    const auto value = json.value();
    return value && json.atEnd() ? std::optional(value->kind) : std::nullopt;
}

/// Gives out so many bytes of the text at a time.
JsonScanner::Read inSteps(std::string_view text, std::size_t step) {
    return [text, step](char* to, std::size_t size) mutable {
        const auto piece = text.substr(0, std::min(step, size));
        std::ranges::copy(piece, to);
        text.remove_prefix(piece.size());
        return piece.size();
    };
}

/// The kind of the one value that the text holds, or nothing when it is not JSON; the same at once and bit by bit.
std::optional<Kind> kindOf(std::string_view text) {
    const auto kind = kindOfOnly(JsonScanner(text));
    for (const std::size_t step : {1, 3, 64}) {
        EXPECT_EQ(kindOfOnly(JsonScanner(inSteps(text, step))), kind) << text << " by " << step;
    }
    return kind;
}

/// The text as a JSON string, quotes included.
QByteArray written(const QByteArray& text) {
    const auto repaired = repairedUtf8(text).toStdString();
    QByteArray output(static_cast<qsizetype>(repaired.size() * LONGEST_JSON_ESCAPE_BYTES), Qt::Uninitialized);
    output.truncate(writeJsonString(output.data(), repaired) - output.constData());
    EXPECT_EQ(static_cast<std::size_t>(output.size()), jsonStringLength(repaired));
    return '"' + output + '"';
}

TEST(JsonScanner, TellsKindsApart) {
    EXPECT_EQ(kindOf("null"), Kind::Null);
    EXPECT_EQ(kindOf("true"), Kind::True);
    EXPECT_EQ(kindOf(" false\n"), Kind::False);
    EXPECT_EQ(kindOf("\t0"), Kind::Number);
    EXPECT_EQ(kindOf("\"true\""), Kind::String);
    EXPECT_EQ(kindOf("[]"), Kind::Array);
    EXPECT_EQ(kindOf("{}"), Kind::Object);
    EXPECT_EQ(kindOf("\xEF\xBB\xBF[]"), Kind::Array);
}

TEST(JsonScanner, NestsAndSkips) {
    EXPECT_EQ(kindOf(R"([1,[2,{"a":[],"b":{"c":null}},"]"],{}, true ])"), Kind::Array);
    EXPECT_EQ(kindOf(R"( { "a" : { "b" : [ ] } , "c" : "}" } )"), Kind::Object);
    EXPECT_EQ(kindOf(std::string(512, '[') + std::string(512, ']')), Kind::Array);
    EXPECT_EQ(kindOf(std::string(513, '[') + std::string(513, ']')), std::nullopt);
    EXPECT_EQ(kindOf(std::string(10'000'000, '[')), std::nullopt);
}

TEST(JsonScanner, RefusesWhatIsNotJson) {
    for (const auto* text : {"",
                             " ",
                             "nul",
                             "True",
                             "nulll",
                             "[",
                             "]",
                             "[1",
                             "[1,]",
                             "[,1]",
                             "[1 2]",
                             "[1}",
                             "{",
                             "{]",
                             "{\"a\"}",
                             "{\"a\":}",
                             "{\"a\":1,}",
                             "{a:1}",
                             "{1:2}",
                             "{\"a\" 1}",
                             "[]]",
                             "1 2",
                             "'a'",
                             "[\"a\":1]",
                             "//",
                             "\xFF",
                             "[1,,2]",
                             "{,}",
                             "{\"a\":1 \"b\":2}"}) {
        EXPECT_EQ(kindOf(text), std::nullopt) << text;
    }
}

TEST(JsonScanner, ReadsNumbersAsTheyMustBeWritten) {
    for (const auto* text : {"0", "-0", "10", "1.5", "-1.25e10", "1E+2", "1e-2", "0.0"}) {
        EXPECT_EQ(kindOf(text), Kind::Number) << text;
    }
    for (const auto* text : {"01", "+1", ".5", "1.", "-", "1e", "1e+", "0x1", "NaN", "Infinity", "-a", "1.e2", "--1"}) {
        EXPECT_EQ(kindOf(text), std::nullopt) << text;
    }
    EXPECT_EQ(jsonNumber("-1.25e2"), -125.0);
    EXPECT_EQ(jsonNumber("1e999"), std::nullopt);
}

TEST(JsonScanner, ReadsStringsAsTheyMustBeWritten) {
    for (const auto* text : {R"("")", R"("a\"b\\c\/d\b\f\n\r\t")", R"("\u00e9\uD83D\uDE00")", "\"é🙂\x7F\""}) {
        EXPECT_EQ(kindOf(text), Kind::String) << text;
    }
    for (const auto* text : {"\"", "\"a", R"("\x")", R"("\u12")", R"("\u12g4")", R"("\u+123")", R"("\)", R"("\")",
                             "\"\n\"", "\"\x01\"", "\"\xFF\"", "\"\xC3\"", "\"\xED\xA0\x80\"", R"("\u)", "\"\t\""}) {
        EXPECT_EQ(kindOf(text), std::nullopt) << text;
    }
    EXPECT_EQ(kindOf("\"\uFFFD\""), Kind::String);
}

TEST(JsonScanner, AnEscapeMayStandAnywhereInALongString) {
    for (std::size_t before = 0; before < 100; ++before) {
        for (const auto* escape : {R"(\/)", R"(\")", R"(\\)", R"(\/\/\/)", R"(\\\")", R"(\/\u00e9\n)"}) {
            const auto inside = std::string(before, 'x') + escape + std::string(80, 'y');
            const auto text = '"' + inside + R"(",")";
            JsonScanner json(text);
            const auto value = json.value();
            ASSERT_TRUE(value.has_value()) << before << escape;
            EXPECT_EQ(json.raw(*value), inside);
        }
        for (const auto* stray : {R"(\x)", "\n", R"(\/\x)", R"(\\\x)", R"(\/\u12)", "\\\n", "\xFF"}) {
            EXPECT_EQ(kindOf('"' + std::string(before, 'x') + stray + std::string(80, 'y') + '"'), std::nullopt)
                << before << stray;
        }
    }
}

TEST(JsonScanner, ValuesAreWhereTheyStandHoweverTheyAreRead) {
    const std::string text =
        R"([ "first\n" , -1.5e3 , {"a":[1, 2]},true,")" + std::string(1'000'000, 'x') + R"(", 7 ])";
    const std::string expected[] = {R"(first\n)", "-1.5e3", R"({"a":[1, 2]})", "true", std::string(1'000'000, 'x'),
                                    "7"};
    for (const std::size_t step : {std::size_t{1}, std::size_t{1000}, text.size()}) {
        JsonScanner json(inSteps(text, step));
        ASSERT_TRUE(json.take('['));
        for (const auto& raw : expected) {
            json.letGo();
            const auto value = json.value();
            ASSERT_TRUE(value.has_value());
            EXPECT_EQ(json.raw(*value), raw);
            EXPECT_EQ(text.substr(value->start, value->length), raw);
            EXPECT_TRUE(json.take(',') || raw == "7");
        }
        EXPECT_TRUE(json.take(']') && json.atEnd());
    }
}

TEST(JsonScanner, HoldsNoMoreThanWhatHasNotBeenLetGo) {
    // A long array of short values, each let go: the place that is read into stays near the start of the buffer.
    int blocks = 100;
    const char* lowest = nullptr;
    const char* highest = nullptr;
    std::size_t total = 0;
    JsonScanner json([&](char* to, std::size_t size) {
        lowest = lowest == nullptr ? to : std::min<const char*>(lowest, to);
        highest = std::max<const char*>(highest, to + size);
        for (std::size_t i = 0; i < size; ++i) {
            to[i] = i % 2 == 0 ? '1' : ',';
        }
        total += blocks > 0 ? size : 0;
        return blocks-- > 0 ? size / 2 * 2 : 0;
    });
    std::size_t values = 0;
    while (json.value()) {
        ++values;
        json.take(',');
        json.letGo();
    }
    EXPECT_EQ(values, total / 2);
    EXPECT_LT(static_cast<std::size_t>(highest - lowest), total / 10);
}

TEST(JsonText, Unescapes) {
    EXPECT_EQ(jsonText(R"(a\"b\\c\/d\b\f\n\r\té)"), "a\"b\\c/d\b\f\n\r\té");
    EXPECT_EQ(jsonText(R"(\u00e9\u20AC\uD83D\uDE00\u0041)"), "é€😀A");
    EXPECT_EQ(jsonText(R"(\u0000)"), QByteArray("\0", 1));
    EXPECT_EQ(jsonText(""), "");
}

TEST(JsonText, HalfASurrogatePairBecomesAReplacementCharacter) {
    EXPECT_EQ(jsonText(R"(a\uD83Db)"), "a\uFFFDb");
    EXPECT_EQ(jsonText(R"(\uDE00)"), "\uFFFD");
    EXPECT_EQ(jsonText(R"(\uD83D\u0041)"), "\uFFFDA");
    EXPECT_EQ(jsonText(R"(\uD83D\uD83D\uDE00)"), "\uFFFD😀");
    EXPECT_EQ(jsonText(R"(\uD83D\n)"), "\uFFFD\n");
}

TEST(JsonText, IsWrittenSoThatItReadsBack) {
    EXPECT_EQ(written("plain é 🙂 / \x7F"), "\"plain é 🙂 / \x7F\"");
    EXPECT_EQ(written("q\"b\\n\nt\t"), R"("q\"b\\n\nt\t")");
    QByteArray all;
    for (char c = 0; c >= 0 && c < 127; ++c) {
        all += c;
    }
    const auto json = written(all);
    EXPECT_EQ(kindOf({json.constData(), static_cast<std::size_t>(json.size())}), Kind::String);
    EXPECT_EQ(jsonText({json.constData() + 1, static_cast<std::size_t>(json.size() - 2)}), all);
}

TEST(JsonText, WhatIsNotUtf8IsWrittenAsReplacementCharacters) {
    EXPECT_EQ(written("a\xFF"), "\"a\uFFFD\"");
    EXPECT_EQ(written("\xC3"), "\"\uFFFD\"");
    EXPECT_EQ(written("\uFFFDb"), "\"\uFFFDb\"");
    EXPECT_EQ(kindOf(written("x\xE2\x82y\xF0\x9F").toStdString()), Kind::String);
}

} // namespace

} // namespace zamber::clipboard
