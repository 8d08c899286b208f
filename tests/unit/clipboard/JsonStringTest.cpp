// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/JsonString.h"

#include "text/Utf8.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <string>

namespace zamber::clipboard {

namespace {

/// The text as a JSON string, quotes included.
QByteArray written(const QByteArray& text) {
    const auto repaired = text::repairedUtf8(text).toStdString();
    QByteArray output(static_cast<qsizetype>(repaired.size() * LONGEST_JSON_ESCAPE_BYTES), Qt::Uninitialized);
    output.truncate(writeJsonString(output.data(), repaired) - output.constData());
    EXPECT_EQ(static_cast<std::size_t>(output.size()), jsonStringLength(repaired));
    return '"' + output + '"';
}

/// The string as another reader reads it.
QByteArray readBack(const QByteArray& json) {
    return QJsonDocument::fromJson('[' + json + ']').array().at(0).toString().toUtf8();
}

TEST(JsonString, IsWrittenSoThatItReadsBack) {
    EXPECT_EQ(written("plain é 🙂 / \x7F"), "\"plain é 🙂 / \x7F\"");
    EXPECT_EQ(written("q\"b\\n\nt\t"), R"("q\"b\\n\nt\t")");
    QByteArray all;
    for (char c = 0; c >= 0 && c < 127; ++c) {
        all += c;
    }
    EXPECT_EQ(readBack(written(all)), all);
}

TEST(JsonString, WhatIsNotUtf8IsWrittenAsReplacementCharacters) {
    EXPECT_EQ(written("a\xFF"), "\"a\uFFFD\"");
    EXPECT_EQ(written("\xC3"), "\"\uFFFD\"");
    EXPECT_EQ(written("\uFFFDb"), "\"\uFFFDb\"");
    EXPECT_EQ(readBack(written("x\xE2\x82y\xF0\x9F")), "x\uFFFDy\uFFFD");
}

} // namespace

} // namespace zamber::clipboard
