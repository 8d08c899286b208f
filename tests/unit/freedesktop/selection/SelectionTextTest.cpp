// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionText.h"

#include "tests/support/NamedRow.h"

#include <gtest/gtest.h>

namespace zamber::freedesktop::selection {

namespace {

class Latin1Test : public testing::TestWithParam<NamedRow> {};

TEST_P(Latin1Test, FromUtf8) {
    EXPECT_EQ(latin1FromUtf8(GetParam().from), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Rows, Latin1Test,
                         testing::Values(NamedRow{"ascii", "plain\n", "plain\n"},
                                         NamedRow{"letters", "Zoë ÿ", "Zo\xeb \xff"},
                                         NamedRow{"controls", "\xc2\x80", "\x80"}, NamedRow{"beyond", "a文b", "a?b"},
                                         NamedRow{"beyond the first plane", "🙂", "?"},
                                         NamedRow{"just beyond", "Ā", "?"}));

TEST(Latin1, EveryCharacterComesBack) {
    QByteArray all;
    for (int character = 1; character < 256; ++character) {
        all += static_cast<char>(character);
    }
    EXPECT_EQ(latin1FromUtf8(utf8FromLatin1(all)), all);
}

} // namespace

} // namespace zamber::freedesktop::selection
