// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/BuiltAppBundle.h"
#include "tests/contracts/AppBundleContract.h"
#include "tests/fakes/FakeAppBundle.h"

namespace zamber {

namespace {

struct FakeAppBundleRig {
    FakeAppBundle fake;

    AppBundle& bundle() { return fake; }
};

struct BuiltAppBundleRig {
    freedesktop::BuiltAppBundle real;

    AppBundle& bundle() { return real; }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AppBundleContract, FakeAppBundleRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Built, AppBundleContract, BuiltAppBundleRig);

} // namespace zamber
