// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/PropertyList.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace zamber::freedesktop {

using namespace Qt::StringLiterals;

namespace {

QByteArray plist(const QByteArray& value) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">" +
           value + "</plist>\n";
}

} // namespace

TEST(PropertyList, EachKindOfValueIsRead) {
    const auto read = readPropertyList(plist("<dict><key>t</key><string> a &amp; b </string><key>n</key>"
                                             "<integer>-42</integer><key>h</key><integer>0x1F</integer><key>u</key>"
                                             "<integer>18446744073709551615</integer><key>r</key><real>1.5</real>"
                                             "<key>y</key><true/><key>f</key><false/><key>d</key>"
                                             "<date>2026-01-02T03:04:05Z</date><key>b</key><data>\nAAEC\n</data>"
                                             "<key>a</key><array><string>x</string><array/></array>"
                                             "<key>e</key><dict/><key></key><string></string></dict>"));
    ASSERT_TRUE(read) << read.error().toStdString();
    const QVariantMap values = read->toMap();
    EXPECT_EQ(values[u"t"_s], u" a & b "_s);
    EXPECT_EQ(values[u"n"_s], -42LL);
    EXPECT_EQ(values[u"h"_s], 31LL);
    EXPECT_EQ(values[u"u"_s], 18446744073709551615ULL);
    EXPECT_EQ(values[u"r"_s], 1.5);
    EXPECT_EQ(values[u"y"_s], true);
    EXPECT_EQ(values[u"f"_s], false);
    EXPECT_EQ(values[u"d"_s].toDateTime().toSecsSinceEpoch(), 1767323045);
    EXPECT_EQ(values[u"b"_s], QByteArray("\0\1\2", 3));
    EXPECT_EQ(values[u"a"_s].toList().size(), 2);
    EXPECT_EQ(values[u"e"_s].typeId(), QMetaType::QVariantMap);
    EXPECT_EQ(values[u""_s], u""_s);
}

TEST(PropertyList, TheTopLevelMayBeAnyValue) {
    EXPECT_EQ(*readPropertyList(plist("<string>x</string>")), u"x"_s);
    EXPECT_EQ(readPropertyList(plist("<array><true/></array>"))->toList().size(), 1);
}

TEST(PropertyList, WhatIsNoneSaysWhy) {
    for (const QByteArray& bytes : {QByteArray(),
                                    QByteArray("garbage"),
                                    QByteArray("\xff\xfe\0\1", 4),
                                    QByteArray("<plist>"),
                                    QByteArray("<html><body/></html>"),
                                    plist(""),
                                    plist("<dict>"),
                                    plist("<dict><string>x</string></dict>"),
                                    plist("<dict><key>a</key></dict>"),
                                    plist("<dict><key>a</key><key>b</key></dict>"),
                                    plist("<integer>x</integer>"),
                                    plist("<integer/>"),
                                    plist("<real>x</real>"),
                                    plist("<date>x</date>"),
                                    plist("<set/>"),
                                    plist("<string><b>x</b></string>"),
                                    plist("<true/><true/>"),
                                    plist("<string>x</string>") + "<more/>",
                                    plist("<array>").repeated(1000),
                                    QByteArray(100'000, '<')}) {
        const auto read = readPropertyList(bytes);
        ASSERT_FALSE(read) << bytes.left(300).toStdString();
        EXPECT_FALSE(read.error().isEmpty());
    }
}

TEST(PropertyList, ADeepOneIsRefusedBeforeTheStackEnds) {
    const QByteArray deep = QByteArray("<array>").repeated(100'000) + QByteArray("</array>").repeated(100'000);
    EXPECT_FALSE(readPropertyList(plist(deep)));
    const QByteArray shallow = QByteArray("<array>").repeated(100) + QByteArray("</array>").repeated(100);
    EXPECT_TRUE(readPropertyList(plist(shallow)));
}

} // namespace zamber::freedesktop
