// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/BuiltAppBundle.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace zamber::update {

TEST(BuiltAppBundle, SaysTheVersionThatTheBuildHas) {
    const freedesktop::BuiltAppBundle bundle;
    EXPECT_EQ(bundle.version(), QStringLiteral(PROJECT_VERSION_TEXT));
    ASSERT_TRUE(bundle.build());
    bool isNumber = false;
    EXPECT_GE(bundle.build()->toInt(&isNumber), 1);
    EXPECT_TRUE(isNumber);
}

TEST(BuiltAppBundle, LiesWhereTheProgramLies) {
    const freedesktop::BuiltAppBundle bundle;
    EXPECT_TRUE(bundle.path().startsWith(u'/')) << bundle.path().toStdString();
    EXPECT_TRUE(bundle.path().endsWith(QStringLiteral("/update_tests"))) << bundle.path().toStdString();
}

} // namespace zamber::update
