// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/contracts/KeystrokePosterContract.h"

namespace zamber {

/// What is promised on top where the program itself serves what it has written, so that it knows when it no longer
/// does. On top of its other calls the rig has
/// - `copyElsewhere`: another program copies after `writeClipboard`;
/// - `settle`: lets every key that has been typed arrive.
template <KeystrokePosterRig Rig>
class ServedClipboardContract : public KeystrokePosterContract<Rig> {};

TYPED_TEST_SUITE_P(ServedClipboardContract);

TYPED_TEST_P(ServedClipboardContract, NothingIsPostedOnceTheClipboardIsSomebodyElses) {
    const RunningApplication editor = this->rig.openApplication();
    const int written = this->rig.writeClipboard();
    this->rig.copyElsewhere();
    EXPECT_EQ(this->postAndWait({.changeCount = written, .target = editor}), PasteOutcome::GivenUp);
    this->rig.settle();
    EXPECT_EQ(this->rig.pastesReceived(editor), 0);
}

REGISTER_TYPED_TEST_SUITE_P(ServedClipboardContract, NothingIsPostedOnceTheClipboardIsSomebodyElses);

} // namespace zamber
