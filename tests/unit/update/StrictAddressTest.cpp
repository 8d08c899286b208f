// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "update/StrictAddress.h"

#include <gtest/gtest.h>

namespace zamber::update {

using namespace Qt::StringLiterals;

TEST(StrictAddress, IsSentAsItStands) {
    for (const QString& text :
         {u"https://zamber.example/api"_s, u"https://zamber.example/api/update/check?version=1.0+beta&build=1"_s,
          u"https://127.0.0.1:8443/a%20b?c=d%2F#e"_s, u"http://[::1]/x"_s, u"https://a.example/~(x)!$&'*,;=:@"_s,
          u"macappstore://apps.example/app/id1"_s}) {
        const auto address = strictAddress(text);
        ASSERT_TRUE(address) << text.toStdString();
        EXPECT_EQ(address->toEncoded().toStdString(), text.toStdString());
    }
}

TEST(StrictAddress, NothingIsEncodedToMakeOne) {
    for (const QString& text :
         {u"https://zamber.example/a b"_s, u"https://zamber.example/?version=1 0"_s, u" https://zamber.example/"_s,
          u"https://zamber.example/\n"_s, u"https://zamber.example/\u00fc"_s, u"https://zamber.example/%"_s,
          u"https://zamber.example/%4"_s, u"https://zamber.example/%zz"_s, u"https://zamber.example/\"x\""_s,
          u"https://zamber.example/<x>"_s, u"https://zamber.example/{x}"_s, u"https://zamber.example/a|b"_s,
          u"https://zamber.example/a\\b"_s, u"https://zamber.example/a^b`c"_s, u"https://zamber.example:port/"_s,
          u"https://[zamber]/"_s, u"https://[::1/"_s}) {
        EXPECT_FALSE(strictAddress(text)) << text.toStdString();
    }
}

TEST(StrictAddress, IsAbsolute) {
    EXPECT_FALSE(strictAddress(QString()));
    EXPECT_FALSE(strictAddress(u"get"_s));
    EXPECT_FALSE(strictAddress(u"/etc/passwd"_s));
    EXPECT_FALSE(strictAddress(u"//zamber.example/x"_s));
    EXPECT_FALSE(strictAddress(u"1http://zamber.example/"_s));
}

} // namespace zamber::update
