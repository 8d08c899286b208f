// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>

namespace zamber {

/// What the workspace does with files:
/// - `makeProgram`: an application that lies in a place of its own; `starts`: how many processes of it were started;
/// - `makeFile`: a file on a volume that has a Trash; `isTrashed`: it is there, and no longer where it was;
/// - `waitUntil`: lets the main loop run until the condition holds; false when it gives up.
template <class Rig>
concept WorkspaceFilesRig =
    std::default_initializable<Rig> && requires(Rig rig, QString path, std::function<bool()> condition) {
        { rig.workspace() } -> std::same_as<Workspace&>;
        { rig.makeProgram() } -> std::same_as<QString>;
        { rig.starts(path) } -> std::same_as<int>;
        { rig.makeFile() } -> std::same_as<QString>;
        { rig.isTrashed(path) } -> std::same_as<bool>;
        { rig.waitUntil(condition) } -> std::same_as<bool>;
    };

template <WorkspaceFilesRig Rig>
class WorkspaceFilesContract : public testing::Test {
protected:
    Rig rig;
    Workspace& workspace = rig.workspace();

    /// What opening came to: a text, empty without an error.
    QString open(const QString& path) {
        int calls = 0;
        QString outcome;
        workspace.openNewInstance(path, [&](const std::optional<QString>& error) {
            ++calls;
            outcome = error.value_or(QString());
        });
        EXPECT_TRUE(rig.waitUntil([&] { return calls > 0; }));
        EXPECT_EQ(calls, 1);
        return outcome;
    }
};

TYPED_TEST_SUITE_P(WorkspaceFilesContract);

TYPED_TEST_P(WorkspaceFilesContract, EachOpeningStartsAnotherInstance) {
    const QString program = this->rig.makeProgram();
    EXPECT_EQ(this->open(program), QString());
    EXPECT_TRUE(this->rig.waitUntil([&] { return this->rig.starts(program) == 1; }));
    EXPECT_EQ(this->open(program), QString());
    EXPECT_TRUE(this->rig.waitUntil([&] { return this->rig.starts(program) == 2; }));
}

TYPED_TEST_P(WorkspaceFilesContract, WhatIsNotThereCannotBeOpened) {
    EXPECT_NE(this->open(QStringLiteral("/nowhere/at all")), QString());
}

TYPED_TEST_P(WorkspaceFilesContract, AFileGoesToTheTrash) {
    const QString path = this->rig.makeFile();
    EXPECT_FALSE(this->rig.isTrashed(path));
    const auto moved = this->workspace.moveToTrash(path);
    EXPECT_TRUE(moved) << moved.error().toStdString();
    EXPECT_TRUE(this->rig.isTrashed(path));
}

TYPED_TEST_P(WorkspaceFilesContract, WhatIsNotThereCannotBeTrashed) {
    const auto moved = this->workspace.moveToTrash(QStringLiteral("/nowhere/at all"));
    ASSERT_FALSE(moved);
    EXPECT_FALSE(moved.error().isEmpty());
}

REGISTER_TYPED_TEST_SUITE_P(WorkspaceFilesContract, EachOpeningStartsAnotherInstance, WhatIsNotThereCannotBeOpened,
                            AFileGoesToTheTrash, WhatIsNotThereCannotBeTrashed);

} // namespace zamber
