// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/web/AnswerFrame.h"

#include <gtest/gtest.h>

namespace zamber::freedesktop::web {

TEST(AnswerFrame, IsReadAsItWasWritten) {
    for (const QByteArray& body : {QByteArray(), QByteArray("{}"), QByteArray("\n\0body 3\nabc\xFF", 14)}) {
        const auto answer = unframed(framed(body));
        ASSERT_TRUE(answer);
        ASSERT_TRUE(answer->has_value());
        EXPECT_EQ(**answer, body);
    }
    for (const QString& reason : {QString(), QStringLiteral("Der Rechner „x“ ist nicht da.\n")}) {
        const auto answer = unframed(framed(std::unexpected(reason)));
        ASSERT_TRUE(answer);
        ASSERT_FALSE(answer->has_value());
        EXPECT_EQ(answer->error(), reason);
    }
}

TEST(AnswerFrame, IsTheWordTheLengthAndTheBytes) {
    EXPECT_EQ(framed(QByteArray("{}\n")), "body 3\n{}\n");
    EXPECT_EQ(framed(std::unexpected(QStringLiteral("\u00fc"))), "failure 2\n\xC3\xBC");
}

TEST(AnswerFrame, TheLargestBodyFits) {
    EXPECT_LE(framed(QByteArray(WebClient::LARGEST_BODY_BYTES, 'x')).size(), LONGEST_FRAME_BYTES);
}

TEST(AnswerFrame, AnythingElseIsNone) {
    for (const char* const output : {"",
                                     "body",
                                     "body ",
                                     "body 0",
                                     "body\n",
                                     "body \n",
                                     "body 2\nx",
                                     "body 2\nxxx",
                                     "body +2\nxx",
                                     "body 02\nxx",
                                     "body  2\nxx",
                                     "body 2 \nxx",
                                     "body -1\n",
                                     "body 0x2\nxx",
                                     " body 2\nxx",
                                     "Body 2\nxx",
                                     "bodyy 2\nxx",
                                     "failure",
                                     "failure 2\nx",
                                     "failure 1\nxx",
                                     "answer 2\nxx",
                                     "\nbody 2\nxx",
                                     "xx"}) {
        EXPECT_FALSE(unframed(output)) << output;
    }
}

} // namespace zamber::freedesktop::web
