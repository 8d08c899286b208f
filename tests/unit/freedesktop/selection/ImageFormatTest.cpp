// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/ImageFormat.h"

#include "platform/ImageLimit.h"
#include "tests/support/Pictures.h"
#include "tests/support/Waiting.h"

#include <QCoreApplication>
#include <QImage>
#include <QImageReader>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace zamber::freedesktop::selection {

namespace {

QImage picture() {
    QImage image(7, 5, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(x * 30, y * 50, 100));
        }
    }
    return image;
}

/// The result of the conversion, or nothing if there is none within the bound.
std::optional<QByteArray> conversion(const QByteArray& bytes, ImageFormat format) {
    QObject context;
    std::optional<QByteArray> result;
    convertImage(bytes, format, &context, [&result](const QByteArray& converted) { result = converted; });
    static_cast<void>(waitUntil([&result] { return result.has_value(); }));
    return result;
}

TEST(ImageFormat, TheLimitIsTheProgramsOwnAndSetBeforeAnotherThreadReadsIt) {
    QObject context;
    convertImage({}, ImageFormat::Png, &context, [](const QByteArray&) {});
    EXPECT_EQ(QImageReader::allocationLimit(), LARGEST_IMAGE_MEGABYTES);
}

TEST(ImageFormat, IsToldByTheFirstBytes) {
    EXPECT_TRUE(hasFormat(encoded(picture(), "PNG"), ImageFormat::Png));
    EXPECT_TRUE(hasFormat(encoded(picture(), "TIFF"), ImageFormat::Tiff));
    EXPECT_TRUE(hasFormat(encoded(picture(), "BMP"), ImageFormat::Bmp));
    EXPECT_FALSE(hasFormat(encoded(picture(), "PNG"), ImageFormat::Tiff));
    EXPECT_FALSE(hasFormat("", ImageFormat::Png));
}

TEST(ImageFormat, EveryFormatConvertsIntoEveryOtherWithoutLosingAPixel) {
    for (const char* source : {"PNG", "TIFF", "BMP"}) {
        for (const ImageFormat target : {ImageFormat::Png, ImageFormat::Tiff, ImageFormat::Bmp}) {
            const auto result = conversion(encoded(picture(), source), target);
            ASSERT_TRUE(result) << source;
            EXPECT_TRUE(hasFormat(*result, target)) << source;
            EXPECT_EQ(QImage::fromData(*result).convertToFormat(QImage::Format_RGB32), picture()) << source;
        }
    }
}

TEST(ImageFormat, JpegAndWebpBecomePng) {
    for (const char* source : {"JPEG", "WEBP"}) {
        const auto result = conversion(encoded(picture(), source), ImageFormat::Png);
        ASSERT_TRUE(result) << source;
        EXPECT_EQ(QImage::fromData(*result, "PNG").size(), picture().size()) << source;
    }
}

TEST(ImageFormat, WhatDoesNotDecodeConvertsToNothing) {
    EXPECT_EQ(conversion("not an image", ImageFormat::Png), QByteArray());
    EXPECT_EQ(conversion(encoded(picture(), "PNG").left(40), ImageFormat::Bmp), QByteArray());
}

TEST(ImageFormat, NobodyIsToldOnceTheContextHasGone) {
    bool isTold = false;
    auto context = std::make_unique<QObject>();
    convertImage(encoded(picture(), "PNG"), ImageFormat::Bmp, context.get(), [&](const QByteArray&) { isTold = true; });
    context.reset();
    // A second conversion that ends after the first: the pool hands its results over in order of their ends.
    ASSERT_TRUE(conversion(encoded(picture().scaled(2000, 2000), "PNG"), ImageFormat::Bmp));
    EXPECT_FALSE(isTold);
}

} // namespace

} // namespace zamber::freedesktop::selection

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
