// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/contracts/KeystrokePosterContract.h"

namespace zamber {

/// What is promised on top where the program itself serves what it has written, so that it knows when it no longer
/// does. The rig's `copyElsewhere`: another program copies after `writeClipboard`.
template <KeystrokePosterRig Rig>
class ServedClipboardContract : public KeystrokePosterContract<Rig> {};

TYPED_TEST_SUITE_P(ServedClipboardContract);

TYPED_TEST_P(ServedClipboardContract, NothingIsPostedOnceTheClipboardIsSomebodyElses) {
    const RunningApplication editor = this->rig.openApplication();
    const int written = this->rig.writeClipboard();
    this->rig.copyElsewhere();
    EXPECT_EQ(this->postAndWait({.changeCount = written, .target = editor}), PasteOutcome::GivenUp);
    EXPECT_FALSE(this->rig.waitUntil([&] { return this->rig.pastesReceived(editor) > 0; }));
}

REGISTER_TYPED_TEST_SUITE_P(ServedClipboardContract, NothingIsPostedOnceTheClipboardIsSomebodyElses);

} // namespace zamber
