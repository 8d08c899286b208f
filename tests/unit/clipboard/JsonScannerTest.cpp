// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/JsonScanner.h"

#include <gtest/gtest.h>

#include <string>

namespace zamber {

namespace {

using Kind = JsonValue::Kind;

/// The kind of the one value that the text holds, or nothing when it is not JSON.
std::optional<Kind> kindOf(std::string_view text) {
    JsonScanner json(text);
    const auto value = json.value();
    return value && json.atEnd() ? std::optional(value->kind) : std::nullopt;
}

QByteArray written(std::string_view text) {
    QByteArray output;
    appendJsonString(output, text);
    return output;
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
    EXPECT_EQ(written("q\"b\\n\nt\t"), R"("q\"b\\n\u000at\u0009")");
    QByteArray all;
    for (char c = 0; c >= 0 && c < 127; ++c) {
        all += c;
    }
    const auto json = written({all.constData(), static_cast<std::size_t>(all.size())});
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

} // namespace zamber
