// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/DiskImageToolContract.h"
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

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, DiskImageToolContract, FakeDiskImageToolRig);

} // namespace zamber
