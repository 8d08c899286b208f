// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/Utf8.h"

#include <gtest/gtest.h>

namespace zamber::text {

namespace {

struct Row {
    const char* name;
    QByteArray from;
    QByteArray to;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

class RepairedUtf8Test : public testing::TestWithParam<Row> {};

TEST_P(RepairedUtf8Test, ReplacesWhatIsBroken) {
    EXPECT_EQ(repairedUtf8(GetParam().from), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Rows, RepairedUtf8Test,
                         testing::Values(Row{"empty", "", ""}, Row{"ascii", "plain", "plain"},
                                         Row{"whole", "Zoë 文 🙂", "Zoë 文 🙂"},
                                         Row{"lone continuation", "a\x80z", "a\xef\xbf\xbdz"},
                                         Row{"cut at the end", "ab\xe6\x96", "ab\xef\xbf\xbd"},
                                         Row{"latin-1", "Zo\xeb!", "Zo\xef\xbf\xbd!"},
                                         Row{"nul inside", QByteArray("a\0b", 3), QByteArray("a\0b", 3)}));

TEST(RepairedUtf8, SharesWhatIsValid) {
    const QByteArray text("a text that is long enough to be allocated");
    EXPECT_EQ(repairedUtf8(text).constData(), text.constData());
}

TEST(RepairedUtf8, KeepsAByteOrderMark) {
    EXPECT_EQ(repairedUtf8("\xef\xbb\xbf"
                           "a\x80"),
              "\xef\xbb\xbf"
              "a\xef\xbf\xbd");
}

} // namespace

} // namespace zamber::text
