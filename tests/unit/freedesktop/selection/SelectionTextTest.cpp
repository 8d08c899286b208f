// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionText.h"

#include <gtest/gtest.h>

namespace zamber::freedesktop::selection {

namespace {

struct Row {
    const char* name;
    QByteArray from;
    QByteArray to;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

class Latin1Test : public testing::TestWithParam<Row> {};

TEST_P(Latin1Test, FromUtf8) {
    EXPECT_EQ(latin1FromUtf8(GetParam().from), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Rows, Latin1Test,
                         testing::Values(Row{"ascii", "plain\n", "plain\n"}, Row{"letters", "Zoë ÿ", "Zo\xeb \xff"},
                                         Row{"controls", "\xc2\x80", "\x80"}, Row{"beyond", "a文b", "a?b"},
                                         Row{"beyond the first plane", "🙂", "?"}, Row{"just beyond", "Ā", "?"}));

TEST(Latin1, EveryCharacterComesBack) {
    QByteArray all;
    for (int character = 1; character < 256; ++character) {
        all += static_cast<char>(character);
    }
    EXPECT_EQ(latin1FromUtf8(utf8FromLatin1(all)), all);
}

} // namespace

} // namespace zamber::freedesktop::selection
