// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "text/Utf8.h"

#include "tests/support/NamedRow.h"

#include <gtest/gtest.h>

namespace zamber::text {

namespace {

class RepairedUtf8Test : public testing::TestWithParam<NamedRow> {};

TEST_P(RepairedUtf8Test, ReplacesWhatIsBroken) {
    EXPECT_EQ(repairedUtf8(GetParam().from), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Rows, RepairedUtf8Test,
                         testing::Values(NamedRow{"empty", "", ""}, NamedRow{"ascii", "plain", "plain"},
                                         NamedRow{"whole", "Zoë 文 🙂", "Zoë 文 🙂"},
                                         NamedRow{"lone continuation", "a\x80z", "a\xef\xbf\xbdz"},
                                         NamedRow{"cut at the end", "ab\xe6\x96", "ab\xef\xbf\xbd"},
                                         NamedRow{"latin-1", "Zo\xeb!", "Zo\xef\xbf\xbd!"},
                                         NamedRow{"nul inside", QByteArray("a\0b", 3), QByteArray("a\0b", 3)}));

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
