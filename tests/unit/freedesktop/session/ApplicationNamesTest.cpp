// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/ApplicationNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

class ApplicationNamesTest : public testing::Test {
protected:
    void writeEntry(const QString& path, const QByteArray& keys) const {
        QFile file(folder.filePath(path));
        QDir().mkpath(QFileInfo(file).path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + keys);
    }

    std::optional<QString> nameOf(const QString& windowClass) { return names.ofWindowClass(windowClass); }

    QTemporaryDir folder;
    ApplicationNames names{{folder.filePath(u"user"_s), folder.filePath(u"system"_s)}, {u"de_AT"_s, u"de"_s}};
};

} // namespace

TEST_F(ApplicationNamesTest, AnEntryCalledLikeTheClassHasTheName) {
    writeEntry(u"system/editor.desktop"_s, "Name=Editor\nName[de]=Bearbeiter\n");
    writeEntry(u"system/Viewer.desktop"_s, "Name=Viewer\n");
    EXPECT_EQ(nameOf(u"editor"_s), u"Bearbeiter"_s);
    EXPECT_EQ(nameOf(u"Editor"_s), u"Bearbeiter"_s);
    EXPECT_EQ(nameOf(u"Viewer"_s), u"Viewer"_s);
}

TEST_F(ApplicationNamesTest, AnEntryThatNamesTheClassHasTheName) {
    writeEntry(u"system/org.example.Writer.desktop"_s, "Name=Writer\nStartupWMClass=writer-bin\n");
    writeEntry(u"system/vendor/tool.desktop"_s, "Name=Tool\nStartupWMClass=vtool\n");
    EXPECT_EQ(nameOf(u"writer-bin"_s), u"Writer"_s);
    EXPECT_EQ(nameOf(u"Writer-bin"_s), u"Writer"_s);
    EXPECT_EQ(nameOf(u"Org.example.Writer"_s), u"Writer"_s) << "how toolkits write it";
    EXPECT_EQ(nameOf(u"vtool"_s), u"Tool"_s);
    EXPECT_EQ(nameOf(u"vendor-tool"_s), u"Tool"_s);
}

TEST_F(ApplicationNamesTest, TheUsersEntryIsTheMoreImportantOne) {
    writeEntry(u"system/editor.desktop"_s, "Name=System's\nStartupWMClass=editor-bin\n");
    writeEntry(u"user/editor.desktop"_s, "Name=User's\n");
    EXPECT_EQ(nameOf(u"editor"_s), u"User's"_s);
    EXPECT_EQ(nameOf(u"editor-bin"_s), u"editor-bin"_s) << "the system's entry is of no account";
}

TEST_F(ApplicationNamesTest, WithoutAnEntryTheClassIsTheName) {
    writeEntry(u"system/nameless.desktop"_s, "Icon=x\n");
    EXPECT_EQ(nameOf(u"nameless"_s), u"nameless"_s);
    EXPECT_EQ(nameOf(u"Unknown"_s), u"Unknown"_s);
    EXPECT_EQ(nameOf(u""_s), std::nullopt);
}

TEST_F(ApplicationNamesTest, AProgramInstalledLaterIsFound) {
    writeEntry(u"user/other.desktop"_s, "Name=Other\n");
    EXPECT_EQ(nameOf(u"late-bin"_s), u"late-bin"_s);
    writeEntry(u"system/late.desktop"_s, "Name=Late\nStartupWMClass=late-bin\n");
    EXPECT_EQ(nameOf(u"late-bin"_s), u"Late"_s);
}

TEST_F(ApplicationNamesTest, NoClassNamesAFileElsewhere) {
    writeEntry(u"secret.desktop"_s, "Name=Secret\n");
    writeEntry(u"system/sub/inner.desktop"_s, "Name=Inner\n");
    for (const QString& windowClass :
         {u"../secret"_s, folder.filePath(u"secret"_s), u"sub/inner"_s, u"a\0b"_s, u".."_s, QString(100'000, u'x')}) {
        EXPECT_EQ(nameOf(windowClass), windowClass);
    }
}

} // namespace zamber::freedesktop::session
