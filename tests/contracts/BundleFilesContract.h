// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BundleFiles.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// A tree of files that begins empty but for the folders /from and /to: `write` makes a file with the folders above
/// it, `read` gives its bytes, or nothing.
template <class Rig>
concept BundleFilesRig = std::default_initializable<Rig> && requires(Rig rig, QString path, QByteArray bytes) {
    { rig.files() } -> std::same_as<BundleFiles&>;
    rig.write(path, bytes);
    { rig.read(path) } -> std::same_as<std::optional<QByteArray>>;
};

template <BundleFilesRig Rig>
class BundleFilesContract : public testing::Test {
protected:
    Rig rig;
    BundleFiles& files = rig.files();
    const QString source = QStringLiteral("/from/Good App.app");
    const QString destination = QStringLiteral("/to/Good App.app");

    void makeBundle() {
        rig.write(source + QStringLiteral("/Contents/Info"), "info");
        rig.write(source + QStringLiteral("/Contents/MacOS/run"), "code");
    }
};

TYPED_TEST_SUITE_P(BundleFilesContract);

TYPED_TEST_P(BundleFilesContract, ABundleIsThereOnceItWasMade) {
    EXPECT_FALSE(this->files.exists(this->source));
    this->makeBundle();
    EXPECT_TRUE(this->files.exists(this->source));
}

TYPED_TEST_P(BundleFilesContract, ABundleIsCopiedWholeAndTheFirstOneStays) {
    this->makeBundle();
    ASSERT_TRUE(this->files.copy(this->source, this->destination));
    for (const QString& bundle : {this->source, this->destination}) {
        EXPECT_EQ(this->rig.read(bundle + QStringLiteral("/Contents/Info")), "info");
        EXPECT_EQ(this->rig.read(bundle + QStringLiteral("/Contents/MacOS/run")), "code");
    }
}

TYPED_TEST_P(BundleFilesContract, ASingleFileIsABundleToo) {
    this->rig.write(this->source, "code");
    ASSERT_TRUE(this->files.copy(this->source, this->destination));
    EXPECT_EQ(this->rig.read(this->destination), "code");
}

TYPED_TEST_P(BundleFilesContract, NothingIsCopiedOverWhatIsThere) {
    this->makeBundle();
    this->rig.write(this->destination + QStringLiteral("/mine"), "mine");
    const auto copied = this->files.copy(this->source, this->destination);
    ASSERT_FALSE(copied);
    EXPECT_FALSE(copied.error().isEmpty());
    EXPECT_EQ(this->rig.read(this->destination + QStringLiteral("/mine")), "mine");
    EXPECT_EQ(this->rig.read(this->destination + QStringLiteral("/Contents/Info")), std::nullopt);
}

TYPED_TEST_P(BundleFilesContract, WhatIsNotThereCannotBeCopied) {
    const auto copied = this->files.copy(this->source, this->destination);
    ASSERT_FALSE(copied);
    EXPECT_FALSE(copied.error().isEmpty());
    EXPECT_FALSE(this->files.exists(this->destination));
}

TYPED_TEST_P(BundleFilesContract, ABundleIsRemovedWithAllItHolds) {
    this->makeBundle();
    this->rig.write(QStringLiteral("/from/other"), "other");
    ASSERT_TRUE(this->files.remove(this->source));
    EXPECT_FALSE(this->files.exists(this->source));
    EXPECT_EQ(this->rig.read(this->source + QStringLiteral("/Contents/Info")), std::nullopt);
    EXPECT_EQ(this->rig.read(QStringLiteral("/from/other")), "other");
}

TYPED_TEST_P(BundleFilesContract, WhatIsNotThereCannotBeRemoved) {
    const auto removed = this->files.remove(this->source);
    ASSERT_FALSE(removed);
    EXPECT_FALSE(removed.error().isEmpty());
}

REGISTER_TYPED_TEST_SUITE_P(BundleFilesContract, ABundleIsThereOnceItWasMade, ABundleIsCopiedWholeAndTheFirstOneStays,
                            ASingleFileIsABundleToo, NothingIsCopiedOverWhatIsThere, WhatIsNotThereCannotBeCopied,
                            ABundleIsRemovedWithAllItHolds, WhatIsNotThereCannotBeRemoved);

} // namespace zamber
