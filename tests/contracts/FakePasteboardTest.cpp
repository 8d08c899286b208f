// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/fakes/FakePasteboard.h"

#include "tests/contracts/PasteboardContract.h"

namespace zamber {

namespace {

struct FakePasteboardRig {
    FakePasteboard fake;

    Pasteboard& pasteboard() { return fake; }
    void copyText(const QByteArray& text) { fake.copyText(text); }
    void copyImage(ImageType type, const QByteArray& bytes) { fake.copyImage(type, bytes); }
    void copyImageWithText(ImageType type, const QByteArray& bytes, const QByteArray& text) {
        fake.copyImageWithText(type, bytes, text);
    }
    void copyNothing() { fake.copyNothing(); }
    std::optional<QByteArray> pastedText() { return fake.string(); }
    std::optional<QByteArray> pastedImage(ImageType type) { return fake.data(type); }
    bool waitUntil(const std::function<bool()>& condition) { return condition(); }
    void settle() {}
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, PasteboardContract, FakePasteboardRig);

} // namespace zamber
