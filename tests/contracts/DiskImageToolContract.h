// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DiskImageTool.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// The system around the tool: `attach` attaches an image, after those that are; `breakTool` takes the tool away.
template <class Rig>
concept DiskImageToolRig = std::default_initializable<Rig> && requires(Rig rig, AttachedImage image) {
    { rig.tool() } -> std::same_as<DiskImageTool&>;
    rig.attach(image);
    rig.breakTool();
};

template <DiskImageToolRig Rig>
class DiskImageToolContract : public testing::Test {
protected:
    Rig rig;
    DiskImageTool& tool = rig.tool();
    const AttachedImage first{.imagePath = QStringLiteral("/home/a & b/One.dmg"),
                              .mountPoints = {QStringLiteral("/Volumes/One"), QStringLiteral("/Volumes/One 1")}};
    const AttachedImage second{.imagePath = std::nullopt, .mountPoints = {QStringLiteral("/Volumes/Two")}};
};

TYPED_TEST_SUITE_P(DiskImageToolContract);

TYPED_TEST_P(DiskImageToolContract, NothingIsAttachedAtFirst) {
    const auto images = this->tool.attachedImages();
    ASSERT_TRUE(images) << images.error().toStdString();
    EXPECT_TRUE(images->isEmpty());
}

TYPED_TEST_P(DiskImageToolContract, AttachedImagesAreReportedInTheirOrder) {
    this->rig.attach(this->first);
    this->rig.attach(this->second);
    const auto images = this->tool.attachedImages();
    ASSERT_TRUE(images) << images.error().toStdString();
    EXPECT_EQ(*images, (QList{this->first, this->second}));
}

TYPED_TEST_P(DiskImageToolContract, ADetachedVolumeIsGoneWhenTheCallComesBack) {
    this->rig.attach(this->first);
    this->rig.attach(this->second);
    this->tool.detach(QStringLiteral("/Volumes/Two"));
    const auto images = this->tool.attachedImages();
    ASSERT_TRUE(images) << images.error().toStdString();
    EXPECT_EQ(*images, (QList{this->first}));
}

TYPED_TEST_P(DiskImageToolContract, DetachingWhatIsNotThereChangesNothing) {
    this->rig.attach(this->first);
    this->tool.detach(QStringLiteral("/Volumes/On"));
    const auto images = this->tool.attachedImages();
    ASSERT_TRUE(images) << images.error().toStdString();
    EXPECT_EQ(*images, (QList{this->first}));
}

TYPED_TEST_P(DiskImageToolContract, WithoutAToolThereIsAnErrorInWordsAndDetachingIsQuiet) {
    this->rig.breakTool();
    const auto images = this->tool.attachedImages();
    ASSERT_FALSE(images);
    EXPECT_FALSE(images.error().isEmpty());
    this->tool.detach(QStringLiteral("/Volumes/Two"));
}

REGISTER_TYPED_TEST_SUITE_P(DiskImageToolContract, NothingIsAttachedAtFirst, AttachedImagesAreReportedInTheirOrder,
                            ADetachedVolumeIsGoneWhenTheCallComesBack, DetachingWhatIsNotThereChangesNothing,
                            WithoutAToolThereIsAnErrorInWordsAndDetachingIsQuiet);

} // namespace zamber
