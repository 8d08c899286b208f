// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/CommandDiskImageTool.h"

#include "tests/contracts/StandInDiskImageTool.h"

namespace zamber::freedesktop {

using namespace Qt::StringLiterals;

namespace {

class CommandDiskImageToolTest : public testing::Test {
protected:
    QList<AttachedImage> images() {
        const auto report = tool.attachedImages();
        EXPECT_TRUE(report) << report.error().toStdString();
        return report.value_or(QList<AttachedImage>());
    }

    StandInDiskImageTool standIn;
    CommandDiskImageTool tool{standIn.program()};
};

QByteArray report(const QByteArray& value) {
    return "<plist version=\"1.0\">" + value + "</plist>";
}

} // namespace

TEST_F(CommandDiskImageToolTest, IsCalledAsTheMacsToolIs) {
    images();
    tool.detach(u"/Volumes/Zamber 1.2"_s);
    EXPECT_EQ(standIn.calls(), (QStringList{u"info -plist"_s, u"detach /Volumes/Zamber 1.2 -force"_s}));
}

TEST_F(CommandDiskImageToolTest, WhatIsMissingOrOfAnotherKindIsSkipped) {
    standIn.report(
        report("<dict><key>images</key><array>"
               "<string>no dictionary</string>"
               "<dict/>"
               "<dict><key>image-path</key><integer>7</integer><key>system-entities</key><string>none</string></dict>"
               "<dict><key>image-path</key><string>/a.dmg</string></dict>"
               "<dict><key>system-entities</key><array><true/><dict/><dict><key>mount-point</key><false/></dict>"
               "<dict><key>mount-point</key><string>/Volumes/B</string></dict></array></dict>"
               "</array></dict>"));
    EXPECT_EQ(images(), (QList<AttachedImage>{{},
                                              {},
                                              {.imagePath = u"/a.dmg"_s, .mountPoints = {}},
                                              {.imagePath = std::nullopt, .mountPoints = {u"/Volumes/B"_s}}}));
}

TEST_F(CommandDiskImageToolTest, AReportWithoutImagesHasNone) {
    for (const char* const value :
         {"<dict/>", "<array/>", "<string>x</string>", "<true/>", "<dict><key>images</key><dict/></dict>",
          "<dict><key>images</key><string>x</string></dict>", "<dict><key>images</key><array/></dict>"}) {
        standIn.report(report(value));
        EXPECT_TRUE(images().isEmpty()) << value;
    }
}

TEST_F(CommandDiskImageToolTest, GarbageIsAnError) {
    for (const QByteArray& bytes : {QByteArray(), QByteArray("garbage"), QByteArray(200'000, '\xEE')}) {
        standIn.report(bytes);
        const auto images = tool.attachedImages();
        ASSERT_FALSE(images);
        EXPECT_FALSE(images.error().isEmpty());
    }
}

TEST_F(CommandDiskImageToolTest, AReportLongerThanAPipeHoldsIsReadWhole) {
    for (int number = 0; number < 2000; ++number) {
        standIn.attach({.imagePath = u"/home/a/%1.dmg"_s.arg(number), .mountPoints = {u"/Volumes/%1"_s.arg(number)}});
    }
    const QList<AttachedImage> found = images();
    ASSERT_EQ(found.size(), 2000) << "that is more than 600 KB";
}

TEST_F(CommandDiskImageToolTest, HowItEndsIsNotLookedAt) {
    standIn.attach({.imagePath = u"/a.dmg"_s, .mountPoints = {u"/Volumes/A"_s}});
    standIn.endWith(3);
    EXPECT_EQ(images().size(), 1);
    tool.detach(u"/Volumes/A"_s);
    EXPECT_TRUE(images().isEmpty());
}

TEST_F(CommandDiskImageToolTest, OneThatCannotBeStartedIsAnError) {
    EXPECT_TRUE(QFile::setPermissions(standIn.program(), QFile::ReadOwner));
    EXPECT_FALSE(tool.attachedImages());
    tool.detach(u"/Volumes/A"_s);
    EXPECT_TRUE(standIn.calls().isEmpty());
}

} // namespace zamber::freedesktop
