// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/Trash.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

TEST(MoveFileToTrash, WhereNoTrashCanBeTheFileStays) {
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    QFile file(folder.filePath(u"One 1.dmg"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    qputenv("XDG_DATA_HOME", QFile::encodeName(file.fileName() + u"/below a file"_s));
    EXPECT_FALSE(moveFileToTrash(file.fileName()));
    before.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", before);
    EXPECT_TRUE(file.exists());
}

TEST(MoveFileToTrash, TheTrashIsTheUsersAndKnowsWhereTheFileWas) {
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath(u"data"_s)));
    QFile file(folder.filePath(u"One 1.dmg"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_TRUE(moveFileToTrash(file.fileName()));
    before.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", before);
    EXPECT_FALSE(file.exists());
    QFile information(folder.filePath(u"data/Trash/info/One 1.dmg.trashinfo"_s));
    ASSERT_TRUE(information.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QUrl::fromPercentEncoding(information.readAll()).contains(u"Path="_s + file.fileName()));
}

} // namespace zamber::freedesktop::session
