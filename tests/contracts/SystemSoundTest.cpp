// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/CanberraSound.h"
#include "tests/contracts/SystemSoundContract.h"
#include "tests/fakes/FakeSystemSound.h"

#include <gtest/gtest.h>

namespace zamber {

namespace {

struct FakeSystemSoundRig {
    Journal journal;
    FakeSystemSound fake{journal};

    SystemSound& sounds() { return fake; }
};

struct CanberraSoundRig {
    freedesktop::CanberraSound adapter;

    SystemSound& sounds() { return adapter; }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SystemSoundContract, FakeSystemSoundRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Canberra, SystemSoundContract, CanberraSoundRig);

} // namespace zamber
