// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/SettingsUserDefaults.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <string_view>

/// With "--write FILE KEY VALUE" it is the other process that the tests ask for.
int main(int argc, char** argv) {
    if (argc == 5 && std::string_view(argv[1]) == "--write") {
        zamber::freedesktop::SettingsUserDefaults(QString::fromUtf8(argv[2]))
            .setString(QString::fromUtf8(argv[3]), QString::fromUtf8(argv[4]));
        return 0;
    }
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
