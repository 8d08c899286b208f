// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ManagerFixture.h"

namespace zamber::clipboard {

namespace {

class PasteboardMonitor : public ManagerFixture {
protected:
    PasteboardMonitor() { start(); }
};

TEST_F(PasteboardMonitor, WhatWasThereBeforeIsNotCaptured) {
    pasteboard.copyText("early");
    manager = ClipboardManager::create(pasteboard, defaults, scheduler, path);
    manager->startMonitoring();
    scheduler.advance(2s);
    EXPECT_EQ(summary(), "");
}

TEST_F(PasteboardMonitor, NothingIsCapturedBeforeMonitoringStarts) {
    manager = ClipboardManager::create(pasteboard, defaults, scheduler, path);
    pasteboard.copyText("early");
    scheduler.advance(2s);
    EXPECT_EQ(summary(), "");
}

TEST_F(PasteboardMonitor, PollsEachHalfSecond) {
    pasteboard.copyText("hello");
    scheduler.advance(499ms);
    EXPECT_EQ(summary(), "");
    scheduler.advance(1ms);
    EXPECT_EQ(summary(), "hello");
    pasteboard.copyText("again");
    scheduler.advance(499ms);
    EXPECT_EQ(summary(), "hello");
    scheduler.advance(1ms);
    EXPECT_EQ(summary(), "again hello");
}

TEST_F(PasteboardMonitor, ReadsNothingWhileTheCountStands) {
    scheduler.advance(1min);
    EXPECT_EQ(pasteboard.reads, 0);
    capture("once");
    const int reads = pasteboard.reads;
    EXPECT_GT(reads, 0);
    scheduler.advance(1min);
    EXPECT_EQ(pasteboard.reads, reads);
}

TEST_F(PasteboardMonitor, TheTimestampIsTheTimeOfTheCapture) {
    scheduler.advance(10s);
    pasteboard.copyText("hello");
    scheduler.advance(300ms);
    scheduler.advance(1h);
    ASSERT_EQ(manager->items().size(), 1);
    EXPECT_EQ(manager->items()[0].timestamp, FakeScheduler::START_TIME + 10.5);
}

TEST_F(PasteboardMonitor, TheSameTextTwiceInARowLeavesOneEntryWithTheNewerTime) {
    capture("other");
    capture("same");
    const auto first = manager->items()[0];
    capture("same");
    EXPECT_EQ(summary(), "same other");
    EXPECT_NE(manager->items()[0].id, first.id);
    EXPECT_GT(manager->items()[0].timestamp, first.timestamp);
}

TEST_F(PasteboardMonitor, OfTwoCopiesWithinOneIntervalTheLaterIsRecorded) {
    pasteboard.copyText("first");
    scheduler.advance(100ms);
    pasteboard.copyText("second");
    scheduler.advance(400ms);
    EXPECT_EQ(summary(), "second");
}

TEST_F(PasteboardMonitor, AnEntryCopiedBackIsNotRecordedAgain) {
    capture("one");
    capture("two");
    manager->copyToClipboard(manager->items()[1]);
    scheduler.advance(5s);
    EXPECT_EQ(summary(), "two one");
}

TEST_F(PasteboardMonitor, AnEmptyTextRecordsNothingAndASpaceDoes) {
    capture("");
    EXPECT_EQ(summary(), "");
    capture(" ");
    ASSERT_EQ(manager->items().size(), 1);
    EXPECT_EQ(manager->items()[0].content.textValue(), " ");
}

TEST_F(PasteboardMonitor, ATextIsKeptUntrimmed) {
    capture("\n  text \n");
    EXPECT_EQ(manager->items()[0].content.textValue(), "\n  text \n");
}

TEST_F(PasteboardMonitor, AnImageWithItsAddressIsRecordedAsAnImageOnly) {
    pasteboard.copyImageWithText(ImageType::Png, "png bytes", "https://zamber.example/picture.png");
    scheduler.advance(500ms);
    EXPECT_EQ(summary(), "[image]");
    EXPECT_EQ(manager->items()[0].content.bytes(), "png bytes");
}

TEST_F(PasteboardMonitor, TiffIsTakenBeforePngAndNeitherIsLookedAt) {
    pasteboard.copyImage(ImageType::Tiff, "tiff bytes");
    scheduler.advance(500ms);
    EXPECT_EQ(manager->items()[0].content.bytes(), "tiff bytes");
    pasteboard.copyImage(ImageType::Png, "");
    scheduler.advance(500ms);
    EXPECT_EQ(summary(), "[image] [image]");
}

TEST_F(PasteboardMonitor, WhatIsNeitherTextNorImageIsPassedOverAndNotAskedForAgain) {
    pasteboard.copyNothing();
    scheduler.advance(500ms);
    EXPECT_EQ(summary(), "");
    const int reads = pasteboard.reads;
    scheduler.advance(5s);
    EXPECT_EQ(pasteboard.reads, reads);
}

TEST_F(PasteboardMonitor, ASecondStartLeavesTheFirstTimerRunning) {
    const auto timers = scheduler.pendingTimers();
    scheduler.advance(250ms);
    manager->startMonitoring();
    EXPECT_EQ(scheduler.pendingTimers(), timers + 1);
    pasteboard.copyText("seen by the first timer");
    scheduler.advance(250ms);
    EXPECT_EQ(manager->items().size(), 1);
    pasteboard.copyText("seen by the second timer");
    scheduler.advance(250ms);
    EXPECT_EQ(manager->items().size(), 2);
}

TEST_F(PasteboardMonitor, TheTimerDoesNotKeepTheHistoryAlive) {
    const std::weak_ptr<ClipboardManager> weak = manager;
    manager.reset();
    EXPECT_TRUE(weak.expired());
    pasteboard.copyText("nobody listens");
    scheduler.advance(2s);
    EXPECT_EQ(pasteboard.reads, 0);
}

} // namespace

} // namespace zamber::clipboard
