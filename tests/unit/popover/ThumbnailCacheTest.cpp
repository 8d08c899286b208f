// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ThumbnailCache.h"

#include "clipboard/ClipboardItem.h"

#include <QBuffer>
#include <QImage>
#include <QTest>
#include <QtEndian>

#include <gtest/gtest.h>

namespace zamber::popover {

namespace {

QByteArray png(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// The checksum of PNG's chunks (ISO 3309).
quint32 crc32(const QByteArray& bytes) {
    quint32 crc = 0xFFFF'FFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB8'8320U : 0U);
        }
    }
    return ~crc;
}

/// A picture that says it is 60,000 pixels wide and high: 14 GB, were it decoded.
QByteArray decodingBomb() {
    constexpr qsizetype HEADER_AT = 12; // its name, then its 13 bytes, of which width and height come first
    constexpr qsizetype CHECKSUM_AT = HEADER_AT + 4 + 13;
    QByteArray bytes = png({2, 2});
    bytes.replace(HEADER_AT + 4, 8, QByteArray::fromHex("0000ea600000ea60"));
    const quint32 checksum = qToBigEndian(crc32(bytes.mid(HEADER_AT, 4 + 13)));
    bytes.replace(CHECKSUM_AT, 4, reinterpret_cast<const char*>(&checksum), sizeof checksum);
    return bytes;
}

clipboard::ClipboardItem imageItem(const QByteArray& bytes) {
    return clipboard::ClipboardItem(clipboard::ClipboardContent::image(bytes), 0);
}

class ThumbnailCacheTest : public testing::Test {
public:
    ThumbnailState stateInTheEnd(const clipboard::ClipboardItem& item) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return cache.thumbnail(item, 1).state != ThumbnailState::Pending; }, 10'000));
        return cache.thumbnail(item, 1).state;
    }

    ThumbnailCache cache;
};

} // namespace

TEST_F(ThumbnailCacheTest, APictureIsLoadedAfterItWasAskedFor) {
    const clipboard::ClipboardItem item = imageItem(png({400, 300}));
    EXPECT_EQ(cache.thumbnail(item, 1).state, ThumbnailState::Pending);
    EXPECT_EQ(stateInTheEnd(item), ThumbnailState::Ready);
    EXPECT_LE(cache.thumbnail(item, 1).image.width(), 400) << "scaled while it is decoded";
}

TEST_F(ThumbnailCacheTest, ABrokenPictureOrADecodingBombCostsItsOwnRowOnly) {
    const clipboard::ClipboardItem bomb = imageItem(decodingBomb());
    const clipboard::ClipboardItem broken = imageItem(png({40, 30}).left(60));
    const clipboard::ClipboardItem noPicture = imageItem(QByteArrayLiteral("no picture at all"));
    const clipboard::ClipboardItem good = imageItem(png({40, 30}));
    for (const clipboard::ClipboardItem& item : {bomb, broken, noPicture, good}) {
        cache.thumbnail(item, 1);
    }
    EXPECT_EQ(stateInTheEnd(good), ThumbnailState::Ready);
    EXPECT_EQ(stateInTheEnd(bomb), ThumbnailState::Undecodable);
    EXPECT_EQ(stateInTheEnd(noPicture), ThumbnailState::Undecodable);
    EXPECT_NE(stateInTheEnd(broken), ThumbnailState::Pending);
}

} // namespace zamber::popover
