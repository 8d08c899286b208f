// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/UserFolders.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace zamber::freedesktop::session {

TEST(UserFolders, TheDataFolderIsTheVariablesOrBelowHome) {
    const auto before = qgetenv("XDG_DATA_HOME");
    const auto homeBefore = qgetenv("HOME");
    qputenv("XDG_DATA_HOME", "/somewhere/data");
    EXPECT_EQ(userDataFolder(), "/somewhere/data");
    qunsetenv("XDG_DATA_HOME");
    qputenv("HOME", "/home/somebody");
    EXPECT_EQ(userDataFolder(), "/home/somebody/.local/share");
    qputenv("XDG_DATA_HOME", "relative/path");
    EXPECT_EQ(userDataFolder(), "/home/somebody/.local/share");
    qputenv("HOME", homeBefore);
    before.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", before);
}

} // namespace zamber::freedesktop::session
