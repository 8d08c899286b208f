// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Images.h"

#include "clipboard/ClipboardContent.h"
#include "platform/ImageLimit.h"
#include "tests/support/Pictures.h"

#include <QColor>
#include <QImageReader>

#include <gtest/gtest.h>

namespace zamber::clipboard {

namespace {

/// Red, green and blue thirds, side by side.
QImage tricolour(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int third = x * 3 / size.width();
            image.setPixelColor(x, y, third == 0 ? Qt::red : third == 1 ? Qt::green : Qt::blue);
        }
    }
    return image;
}

bool isNear(const QColor& colour, const QColor& expected) {
    return std::abs(colour.red() - expected.red()) < 40 && std::abs(colour.green() - expected.green()) < 40 &&
           std::abs(colour.blue() - expected.blue()) < 40;
}

TEST(Images, PngAndTiffDecode) {
    for (const auto* format : {"PNG", "TIFF"}) {
        const auto content = ClipboardContent::image(encoded(tricolour({90, 60}), format));
        const auto image = content.nsImage();
        ASSERT_TRUE(image.has_value()) << format;
        EXPECT_EQ(image->size(), QSize(90, 60));
        EXPECT_TRUE(isNear(image->pixelColor(5, 5), Qt::red));
        EXPECT_TRUE(isNear(image->pixelColor(85, 55), Qt::blue));
    }
}

TEST(Images, BytesThatDoNotDecodeAreNoImage) {
    for (const auto& bytes : {QByteArray(), QByteArray("no image"), encoded(tricolour({90, 60}), "PNG").first(30)}) {
        const auto content = ClipboardContent::image(bytes);
        EXPECT_EQ(content.nsImage(), std::nullopt);
        EXPECT_TRUE(content.thumbnail({40, 30}).isNull());
        EXPECT_TRUE(content.thumbnail({40, 30}).isNull());
    }
}

TEST(Images, ThumbnailFillsTheBoxAndCropsTheOverflowEvenly) {
    for (const auto* format : {"PNG", "TIFF", "BMP"}) {
        const auto wide = imageFilling({40, 30}, encoded(tricolour({900, 60}), format));
        ASSERT_EQ(wide.size(), QSize(40, 30)) << format;
        EXPECT_TRUE(isNear(wide.pixelColor(1, 15), Qt::green)) << format;
        EXPECT_TRUE(isNear(wide.pixelColor(38, 15), Qt::green)) << format;

        const auto tall = imageFilling({40, 30}, encoded(tricolour({60, 900}), format));
        ASSERT_EQ(tall.size(), QSize(40, 30)) << format;
        EXPECT_TRUE(isNear(tall.pixelColor(2, 15), Qt::red)) << format;
        EXPECT_TRUE(isNear(tall.pixelColor(20, 15), Qt::green)) << format;
        EXPECT_TRUE(isNear(tall.pixelColor(37, 15), Qt::blue)) << format;
    }
}

TEST(Images, ASmallImageIsScaledUpToFillTheBox) {
    const auto image = imageFilling({40, 30}, encoded(tricolour({3, 1}), "PNG"));
    EXPECT_EQ(image.size(), QSize(40, 30));
}

TEST(Images, AnExtremelyLongImageHasAThumbnail) {
    EXPECT_EQ(imageFilling({40, 30}, encoded(tricolour({1, 20000}), "PNG")).size(), QSize(40, 30));
    EXPECT_EQ(imageFilling({40, 30}, encoded(tricolour({20000, 1}), "PNG")).size(), QSize(40, 30));
}

TEST(Images, TheThumbnailLastAskedForIsKept) {
    const auto content = ClipboardContent::image(encoded(tricolour({90, 60}), "PNG"));
    const auto first = content.thumbnail({40, 30});
    EXPECT_EQ(content.thumbnail({40, 30}).constBits(), first.constBits());
    EXPECT_EQ(content.thumbnail({80, 60}).size(), QSize(80, 60));
    EXPECT_TRUE(content.thumbnail({0, 0}).isNull());
}

TEST(Images, TheLimitIsTheProgramsOwn) {
    EXPECT_TRUE(decodedImage(encoded(tricolour({3, 1}), "PNG")));
    EXPECT_EQ(QImageReader::allocationLimit(), LARGEST_IMAGE_MEGABYTES);
}

TEST(Images, AnImageBeyondQtsOwnLimitDecodes) {
    // 8192 × 5000 pixels are 156 MiB.
    QImage image(8192, 5000, QImage::Format_RGB32);
    ASSERT_FALSE(image.isNull());
    image.fill(Qt::red);
    const auto bytes = encoded(image, "PNG");
    image = {};
    EXPECT_EQ(imageFilling({40, 30}, bytes).size(), QSize(40, 30));
}

} // namespace

} // namespace zamber::clipboard
