// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/CommandDiskImageTool.h"
#include "tests/contracts/DiskImageToolContract.h"
#include "tests/contracts/StandInDiskImageTool.h"
#include "tests/fakes/FakeDiskImageTool.h"

namespace zamber {

namespace {

struct FakeDiskImageToolRig {
    Journal journal;
    FakeDiskImageTool fake{journal};

    DiskImageTool& tool() { return fake; }
    void attach(const AttachedImage& image) { fake.images.append(image); }
    void breakTool() { fake.reportError = QStringLiteral("No tool"); }
};

struct CommandDiskImageToolRig {
    StandInDiskImageTool standIn;
    freedesktop::CommandDiskImageTool real{standIn.program()};

    DiskImageTool& tool() { return real; }
    void attach(const AttachedImage& image) { standIn.attach(image); }
    void breakTool() { standIn.takeAway(); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, DiskImageToolContract, FakeDiskImageToolRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Command, DiskImageToolContract, CommandDiskImageToolRig);

} // namespace zamber
