// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/WorkspaceFilesContract.h"
#include "tests/fakes/FakeWorkspace.h"

#include <algorithm>

namespace zamber {

namespace {

struct FakeWorkspaceFilesRig {
    Journal journal;
    FakeWorkspace fake{journal};

    FakeWorkspaceFilesRig() { fake.missingFiles = {QStringLiteral("/nowhere/at all")}; }

    Workspace& workspace() { return fake; }
    static QString makeProgram() { return QStringLiteral("/Applications/Good.app"); }
    static QString makeFile() { return QStringLiteral("/home/a/One.dmg"); }
    int starts(const QString& path) { return count("new instance of " + path.toStdString()); }
    bool isTrashed(const QString& path) { return count("trash " + path.toStdString()) == 1; }
    bool waitUntil(const std::function<bool()>& condition) { return condition(); }

private:
    int count(const std::string& entry) { return static_cast<int>(std::ranges::count(journal.entries(), entry)); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, WorkspaceFilesContract, FakeWorkspaceFilesRig);

} // namespace zamber
