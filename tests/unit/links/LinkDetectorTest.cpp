// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "LinkTable.h"

#include "platform/links/LinkScan.h"
#include "platform/links/LinkedTopLevelDomains.h"
#include "platform/links/ScannerLinkDetector.h"

#include <gtest/gtest.h>

#include <ctime>

namespace zamber::links {

using namespace Qt::StringLiterals;

namespace {

class LinksOf : public testing::TestWithParam<LinkGroup> {};

} // namespace

TEST_P(LinksOf, TheTableAreFound) {
    ScannerLinkDetector detector;
    for (const LinkCase& expected : GetParam().cases) {
        const QString text = expected.text.toString();
        const std::optional<DetectedLink> found = detector.firstLink(text);
        const QString link = found ? text.mid(found->start, found->length) : QString();
        EXPECT_EQ(link.toStdString(), expected.link.toString().toStdString()) << "in " << text.toStdString();
        if (found && link == expected.link) {
            const QStringView address = expected.address.isEmpty() ? expected.link : expected.address;
            EXPECT_EQ(found->address.toEncoded().toStdString(), address.toString().toStdString())
                << "in " << text.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, LinksOf, testing::ValuesIn(linkTable()));

TEST(LinkedTopLevelDomains, AreKnownInAnyCaseAndBothForms) {
    EXPECT_TRUE(isLinkedTopLevelDomain(u"com"));
    EXPECT_TRUE(isLinkedTopLevelDomain(u"Com"));
    EXPECT_TRUE(isLinkedTopLevelDomain(u"рф"));
    EXPECT_TRUE(isLinkedTopLevelDomain(u"xn--p1ai"));
    EXPECT_TRUE(isLinkedTopLevelDomain(u"XN--P1AI"));
    EXPECT_FALSE(isLinkedTopLevelDomain(u"xn--p1aj"));
    EXPECT_FALSE(isLinkedTopLevelDomain(u"xn--"));
    EXPECT_FALSE(isLinkedTopLevelDomain(u""));
    EXPECT_FALSE(isLinkedTopLevelDomain(u"md"));
}

/// Texts whose every part looks like the beginning of a link and is none, or is one that never ends. To read them again
/// from each part takes minutes of processor time, to read them a few times some milliseconds.
TEST(LinkScan, AnyTextIsReadAFewTimesAtMost) {
    static constexpr QStringView PARTS[] = {
        u"a",       u".",         u"a.",      u"@",           u"a@",      u"://",     u"a://",     u"ab://",
        u"http://", u"http://[",  u"ab://[x", u"http://a@",   u"www.",    u"mailto:", u"a@b",      u"a.com'a@",
        u"(",       u"()",        u"[(",      u"http://a/(",  u"_",       u"-",       u"&a;",      u"日本a",
        u"a.日本",  u"example.c", u"a.com=",  u"f(a.com",     u"😀",      u"\xD800",  u"a.com@",   u"x.com:1:",
        u"a'",      u"http://%",  u"..a@",    u"http://a:b@", u"\\nhttp", u"#!$&'*",  u"a.com+b@", u"\xDC00",
    };
    constexpr qsizetype LENGTH = 200'000;
    constexpr double MOST_SECONDS = 2.0;
    static constexpr QStringView BEGINNINGS[] = {u"", u"http://a/", u"a@", u"ab://"};
    static constexpr QStringView ENDS[] = {u"", u"@", u".com", u" "};
    for (const QStringView part : PARTS) {
        const QString repeated = part.toString().repeated(LENGTH / part.size());
        for (const QStringView beginning : BEGINNINGS) {
            for (const QStringView end : ENDS) {
                const QString text = beginning.toString() + repeated + end.toString();
                const auto start = std::clock();
                LinkScan(text).first();
                EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, MOST_SECONDS)
                    << "for many of " << part.toString().toStdString() << " after "
                    << beginning.toString().toStdString() << " and before " << end.toString().toStdString();
            }
        }
    }
}

TEST(LinkScan, FindsTheLinkAtTheEndOfALongText) {
    const QString text = u"word, "_s.repeated(100'000) + u"https://example.com/x"_s;
    LinkScan scan(text);
    const auto found = scan.first();
    ASSERT_TRUE(found);
    EXPECT_EQ(found->start, 600'000);
    EXPECT_EQ(found->length, 21);
}

TEST(LinkScan, ALinkMayBeAsLongAsTheText) {
    const QString text = u"https://example.com/"_s + u"abc/"_s.repeated(100'000);
    LinkScan scan(text);
    const auto found = scan.first();
    ASSERT_TRUE(found);
    EXPECT_EQ(found->length, text.size());
}

} // namespace zamber::links
