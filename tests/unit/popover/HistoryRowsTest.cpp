// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/HistoryRows.h"

#include "preferences/PreferenceKeys.h"

#include "tests/fakes/FakeLinkDetector.h"
#include "tests/support/Pictures.h"
#include "tests/unit/popover/ClipboardListViewFixture.h"

#include <QSignalSpy>
#include <QTest>
#include <QtEndian>

#include <gtest/gtest.h>

namespace zamber::popover {

namespace {

const QByteArray LARGE = QByteArray("password is what this line is about\n").repeated(1'000'000);
const QByteArray ADDRESS = "https://example.org/a";

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
    QByteArray bytes = filledPicture({2, 2}, Qt::darkCyan);
    bytes.replace(HEADER_AT + 4, 8, QByteArray::fromHex("0000ea600000ea60"));
    const quint32 checksum = qToBigEndian(crc32(bytes.mid(HEADER_AT, 4 + 13)));
    bytes.replace(CHECKSUM_AT, 4, reinterpret_cast<const char*>(&checksum), sizeof checksum);
    return bytes;
}

clipboard::ClipboardItem imageItem(const QByteArray& bytes) {
    return clipboard::ClipboardItem(clipboard::ClipboardContent::image(bytes), 0);
}

class HistoryRowsTest : public testing::Test {
public:
    ThumbnailState stateInTheEnd(const clipboard::ClipboardItem& item) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return rows.thumbnail(item, 1).state != ThumbnailState::Pending; }, 10'000));
        return rows.thumbnail(item, 1).state;
    }

    FakeLinkDetector detector;
    HistoryRows rows{&detector};
};

} // namespace

TEST_F(HistoryRowsTest, APictureIsLoadedAfterItWasAskedFor) {
    const clipboard::ClipboardItem item = imageItem(filledPicture({400, 300}, Qt::darkCyan));
    EXPECT_EQ(rows.thumbnail(item, 1).state, ThumbnailState::Pending);
    EXPECT_EQ(stateInTheEnd(item), ThumbnailState::Ready);
    EXPECT_LE(rows.thumbnail(item, 1).image.width(), 400) << "scaled while it is decoded";
}

TEST_F(HistoryRowsTest, ABrokenPictureOrADecodingBombCostsItsOwnRowOnly) {
    const clipboard::ClipboardItem bomb = imageItem(decodingBomb());
    const clipboard::ClipboardItem broken = imageItem(filledPicture({40, 30}, Qt::darkCyan).left(60));
    const clipboard::ClipboardItem noPicture = imageItem(QByteArrayLiteral("no picture at all"));
    const clipboard::ClipboardItem good = imageItem(filledPicture({40, 30}, Qt::darkCyan));
    for (const clipboard::ClipboardItem& item : {bomb, broken, noPicture, good}) {
        rows.thumbnail(item, 1);
    }
    EXPECT_EQ(stateInTheEnd(good), ThumbnailState::Ready);
    EXPECT_EQ(stateInTheEnd(bomb), ThumbnailState::Undecodable);
    EXPECT_EQ(stateInTheEnd(noPicture), ThumbnailState::Undecodable);
    EXPECT_NE(stateInTheEnd(broken), ThumbnailState::Pending);
}

TEST_F(HistoryRowsTest, ATextHasNoPicture) {
    EXPECT_TRUE(
        rows.thumbnail(clipboard::ClipboardItem(clipboard::ClipboardContent::text("text"), 0), 1).image.isNull());
}

TEST_F(HistoryRowsTest, AShortTextAndAnImageNeedNoMeasuring) {
    EXPECT_EQ(rows.textState(clipboard::ClipboardItem(clipboard::ClipboardContent::text("short"), 0)),
              TextState::Measured);
    EXPECT_EQ(rows.textState(imageItem(LARGE)), TextState::Measured);
}

TEST_F(HistoryRowsTest, ALargeTextIsMeasuredOnceOnAnotherThread) {
    QSignalSpy changed(&rows, &HistoryRows::changed);
    const clipboard::ClipboardItem item(clipboard::ClipboardContent::text(LARGE), 0);
    EXPECT_EQ(rows.textState(item), TextState::Pending);
    EXPECT_EQ(rows.textState(item), TextState::Pending);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows.textState(item) == TextState::Measured; }, 20'000));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(item.content.lineCount(), 1'000'000);
}

TEST_F(HistoryRowsTest, ALargeTextThatSomebodyHasMeasuredNeedsNoThread) {
    QSignalSpy changed(&rows, &HistoryRows::changed);
    const clipboard::ClipboardItem item(clipboard::ClipboardContent::text(LARGE), 0);
    item.content.measure();
    EXPECT_EQ(rows.textState(item), TextState::Measured);
    QTest::qWait(0);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(HistoryRowsTest, OneThatIsDroppedMeanwhileIsNotTold) {
    const clipboard::ClipboardItem gone(clipboard::ClipboardContent::text(LARGE), 0);
    const clipboard::ClipboardItem kept(clipboard::ClipboardContent::text(LARGE + "x"), 0);
    rows.textState(gone);
    rows.textState(kept);
    QSignalSpy changed(&rows, &HistoryRows::changed);
    rows.keepOnly({kept});
    EXPECT_EQ(rows.find(gone.id), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows.textState(kept) == TextState::Measured; }, 20'000));
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(HistoryRowsTest, ALinkIsLookedForOnceUntilTheEntryIsDropped) {
    const clipboard::ClipboardItem item(clipboard::ClipboardContent::text(ADDRESS), 0);
    EXPECT_EQ(rows.link(item), QUrl(QString::fromUtf8(ADDRESS)));
    EXPECT_EQ(rows.link(item), QUrl(QString::fromUtf8(ADDRESS)));
    EXPECT_EQ(detector.questions, 1);
    rows.keepOnly({item});
    rows.link(item);
    EXPECT_EQ(detector.questions, 1);
    rows.keepOnly({});
    rows.link(item);
    EXPECT_EQ(detector.questions, 2);
}

TEST(HistoryRows, WithoutADetectorThereAreNoLinks) {
    HistoryRows rows(nullptr);
    EXPECT_EQ(rows.link(clipboard::ClipboardItem(clipboard::ClipboardContent::text(ADDRESS), 0)), std::nullopt);
}

TEST_F(HistoryRowsTest, HeightsAreForgottenAndTheRestIsKept) {
    const clipboard::ClipboardItem item(clipboard::ClipboardContent::text(ADDRESS), 0);
    rows.link(item);
    rows.of(item.id).height = 30;
    rows.forgetHeights();
    EXPECT_FALSE(rows.of(item.id).height);
    rows.link(item);
    EXPECT_EQ(detector.questions, 1);
}

using LargeTextInTheListTest = ClipboardListViewTest;

TEST_F(LargeTextInTheListTest, ItsCountsComeWhenTheyAreKnown) {
    stage.copyText(LARGE);
    stage.copyText("short");
    open();
    const int before = stage.list().rowRectangle(1).height();
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.list().rowRectangle(1).height() > before; }, 20'000));
    EXPECT_TRUE(stage.list().describe(1).contains(u"1000000 lines"_s));
}

TEST_F(LargeTextInTheListTest, NothingOfItIsShownUntilItIsKnownWhetherItIsSensitive) {
    write(stage.defaults, preferences::hideSensitive, true);
    stage.copyText(LARGE);
    stage.copyText("short");
    open();
    const QString dots = u"●●●●●●●●●●●●"_s;
    const QString first = stage.list().preview(1);
    EXPECT_TRUE(first.isEmpty() || first == dots) << "the other thread may have been faster: " << first.toStdString();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.list().preview(1).isEmpty(); }, 20'000));
    EXPECT_EQ(stage.list().preview(1), dots);
}

} // namespace zamber::popover
