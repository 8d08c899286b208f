// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ManagerFixture.h"

#include <QLocale>

namespace zamber::clipboard {

namespace {

class ClipboardManagerTest : public ManagerFixture {
protected:
    ClipboardManagerTest() {
        start();
        watch();
    }

    void watch() {
        QObject::connect(manager.get(), &ClipboardManager::itemsChanged, manager.get(), [this] { ++itemChanges; });
        QObject::connect(manager.get(), &ClipboardManager::searchTextChanged, manager.get(),
                         [this] { ++searchChanges; });
    }

    bool savesNow() {
        std::filesystem::remove(path);
        scheduler.advance(1s);
        return std::filesystem::exists(path);
    }

    void captureNumbers(int first, int last) {
        for (int i = first; i <= last; ++i) {
            capture(QByteArray::number(i));
        }
    }

    int itemChanges = 0;
    int searchChanges = 0;
};

TEST_F(ClipboardManagerTest, TheNewestCaptureComesFirst) {
    capture("one");
    capture("two");
    EXPECT_EQ(summary(), "two one");
    EXPECT_EQ(itemChanges, 2);
}

TEST_F(ClipboardManagerTest, The21stCopyRemovesTheOldestUnpinnedEntry) {
    captureNumbers(1, 20);
    EXPECT_EQ(manager->items().size(), 20);
    capture("21");
    EXPECT_EQ(manager->items().size(), 20);
    EXPECT_EQ(manager->items().front().content.textValue(), "21");
    EXPECT_EQ(manager->items().back().content.textValue(), "2");
}

TEST_F(ClipboardManagerTest, PinnedEntriesAreNeitherCountedNorRemovedHoweverMany) {
    write(defaults, preferences::maxItems, 2);
    for (int i = 1; i <= 5; ++i) {
        capture("pinned" + QByteArray::number(i));
        manager->togglePin(manager->items()[0]);
    }
    captureNumbers(1, 3);
    EXPECT_EQ(summary(), "3 2 pinned5* pinned4* pinned3* pinned2* pinned1*");
}

TEST_F(ClipboardManagerTest, ATextEqualToAnUnpinnedEntryMovesToTheTopWithANewIdAndTime) {
    capture("café");
    capture("other");
    const auto old = manager->items()[1];
    capture("cafe\u0301");
    EXPECT_EQ(summary(), "cafe\u0301 other");
    EXPECT_NE(manager->items()[0].id, old.id);
    EXPECT_GT(manager->items()[0].timestamp, old.timestamp);
}

TEST_F(ClipboardManagerTest, ATextEqualToAPinnedEntryIsListedTwice) {
    capture("a");
    manager->togglePin(manager->items()[0]);
    capture("a");
    EXPECT_EQ(summary(), "a a*");
    capture("a");
    EXPECT_EQ(summary(), "a a*");
}

TEST_F(ClipboardManagerTest, ATextAndAnImageOfTheSameBytesAreTwoEntries) {
    capture("a");
    pasteboard.copyImage(ImageType::Png, "a");
    scheduler.advance(500ms);
    EXPECT_EQ(summary(), "[image] a");
}

TEST_F(ClipboardManagerTest, ALimitOf0OrNoneIs20AndAnyOtherNumberIsUsedAsItIs) {
    EXPECT_EQ(manager->maxItems(), 20);
    write(defaults, preferences::maxItems, 0);
    EXPECT_EQ(manager->maxItems(), 20);
    write(defaults, preferences::maxItems, 7);
    EXPECT_EQ(manager->maxItems(), 7);
    captureNumbers(1, 9);
    EXPECT_EQ(manager->items().size(), 7);
    write(defaults, preferences::maxItems, 100);
    EXPECT_EQ(manager->maxItems(), 100);
}

TEST_F(ClipboardManagerTest, ANegativeLimitKeepsNoUnpinnedEntry) {
    capture("pinned");
    manager->togglePin(manager->items()[0]);
    for (const int limit : {-1, std::numeric_limits<int>::min()}) {
        write(defaults, preferences::maxItems, limit);
        EXPECT_EQ(manager->maxItems(), limit);
        capture("gone");
        EXPECT_EQ(summary(), "pinned*");
    }
}

TEST_F(ClipboardManagerTest, ASmallerLimitTrimsAtTheNextCapture) {
    captureNumbers(1, 5);
    write(defaults, preferences::maxItems, 2);
    EXPECT_EQ(summary(), "5 4 3 2 1");
    capture("6");
    EXPECT_EQ(summary(), "6 5");
}

TEST_F(ClipboardManagerTest, UnpinningTrimsNothing) {
    write(defaults, preferences::maxItems, 1);
    capture("a");
    manager->togglePin(manager->items()[0]);
    capture("b");
    manager->togglePin(manager->items()[1]);
    EXPECT_EQ(summary(), "b a");
    capture("c");
    EXPECT_EQ(summary(), "c");
}

TEST_F(ClipboardManagerTest, PinningMovesNothingAndAStaleCopyFindsItsEntry) {
    capture("a");
    capture("b");
    const auto stale = manager->items()[1];
    manager->togglePin(stale);
    EXPECT_EQ(summary(), "b a*");
    manager->togglePin(stale);
    EXPECT_EQ(summary(), "b a");
    EXPECT_EQ(itemChanges, 4);
    EXPECT_TRUE(savesNow());
}

TEST_F(ClipboardManagerTest, PinningAnUnknownEntryDoesNothingAndSavesNothing) {
    manager->togglePin(ClipboardItem(ClipboardContent::text("a"), 1));
    EXPECT_EQ(itemChanges, 0);
    EXPECT_FALSE(savesNow());
}

TEST_F(ClipboardManagerTest, DeletingRemovesThatEntryAlsoAPinnedOne) {
    capture("a");
    capture("b");
    manager->togglePin(manager->items()[0]);
    manager->deleteItem(manager->items()[0]);
    EXPECT_EQ(summary(), "a");
    manager->deleteItem(manager->items()[0]);
    EXPECT_EQ(summary(), "");
    EXPECT_EQ(itemChanges, 5);
    EXPECT_TRUE(savesNow());
}

TEST_F(ClipboardManagerTest, DeletingAnUnknownEntryChangesNothingButStillSaves) {
    manager->deleteItem(ClipboardItem(ClipboardContent::text("a"), 1));
    EXPECT_EQ(itemChanges, 0);
    EXPECT_TRUE(savesNow());
}

TEST_F(ClipboardManagerTest, ClearingKeepsThePinnedEntries) {
    capture("a");
    capture("b");
    capture("c");
    manager->togglePin(manager->items()[1]);
    manager->clearAll();
    EXPECT_EQ(summary(), "b*");
    EXPECT_TRUE(savesNow());
}

TEST_F(ClipboardManagerTest, ClearingOnlyPinnedEntriesChangesNothingButStillSaves) {
    capture("a");
    manager->togglePin(manager->items()[0]);
    scheduler.advance(2s);
    manager->clearAll();
    EXPECT_EQ(summary(), "a*");
    EXPECT_TRUE(savesNow());
}

TEST_F(ClipboardManagerTest, PinnedEntriesComeFirstThenTheNewest) {
    save({{ClipboardContent::text("b"), 2},
          {ClipboardContent::text("old"), 1, true},
          {ClipboardContent::text("c"), 3},
          {ClipboardContent::text("new"), 9, true},
          {ClipboardContent::text("a"), 1}});
    start();
    EXPECT_EQ(found(), "new* old* c b a");
    EXPECT_EQ(summary(), "b old* c new* a");
}

TEST_F(ClipboardManagerTest, EntriesOfOneMomentKeepTheirOrder) {
    QList<ClipboardItem> items;
    for (const char c : QByteArray("thequickbrownfoxjumps")) {
        items.append({ClipboardContent::text(QByteArray(1, c)), 1});
    }
    save(items);
    start();
    EXPECT_EQ(found(), summary());
}

TEST_F(ClipboardManagerTest, ASearchForImageListsImagesAndTextsThatContainIt) {
    capture("My IMAGE");
    capture("something else");
    pasteboard.copyImage(ImageType::Png, "bytes");
    scheduler.advance(500ms);
    capture("imagine");
    capture("images");
    search(QStringLiteral("image"));
    EXPECT_EQ(found(), "images [image] My IMAGE");
    search(QStringLiteral("MAG"));
    EXPECT_EQ(found(), "images imagine [image] My IMAGE");
    search(QStringLiteral("bytes"));
    EXPECT_EQ(found(), "");
    search(QString());
    EXPECT_EQ(manager->filteredItems().size(), 5);
}

TEST_F(ClipboardManagerTest, ASearchOfASpaceIsARealSearch) {
    capture("two words");
    capture("word");
    search(QStringLiteral(" "));
    EXPECT_EQ(found(), "two words");
}

TEST_F(ClipboardManagerTest, TheUsersLanguageDecidesHowLettersCompare) {
    const QLocale before;
    capture("IMAGE");
    search(QStringLiteral("image"));
    EXPECT_EQ(found(), "IMAGE");
    QLocale::setDefault(QLocale(QLocale::Turkish));
    EXPECT_EQ(found(), "");
    search(QStringLiteral("ımage"));
    EXPECT_EQ(found(), "IMAGE");
    QLocale::setDefault(before);
}

TEST_F(ClipboardManagerTest, TheSearchTextTellsItsChanges) {
    search(QStringLiteral("a"));
    EXPECT_EQ(manager->searchText(), QStringLiteral("a"));
    EXPECT_EQ(searchChanges, 1);
    search(QStringLiteral("a"));
    EXPECT_EQ(searchChanges, 1);
    EXPECT_EQ(itemChanges, 0);
}

TEST_F(ClipboardManagerTest, CopyingATextBackClearsThenWritesIt) {
    capture(" a\n");
    manager->copyToClipboard(manager->items()[0]);
    using Write = FakePasteboard::Write;
    EXPECT_EQ(pasteboard.writes, QList<Write>({{Write::Kind::Clear, {}}, {Write::Kind::String, " a\n"}}));
}

TEST_F(ClipboardManagerTest, CopyingAnImageBackWritesItsBytesAsTiffAlsoWhenTheyArePng) {
    pasteboard.copyImage(ImageType::Png, "png bytes");
    scheduler.advance(500ms);
    manager->copyToClipboard(manager->items()[0]);
    using Write = FakePasteboard::Write;
    EXPECT_EQ(pasteboard.writes, QList<Write>({{Write::Kind::Clear, {}}, {Write::Kind::Tiff, "png bytes"}}));
    scheduler.advance(1s);
    EXPECT_EQ(summary(), "[image]");
}

TEST_F(ClipboardManagerTest, CopyingBackChangesNeitherPlaceNorTimeAndPastesNothing) {
    bool isPasted = false;
    manager->onPaste = [&] { isPasted = true; };
    capture("a");
    capture("b");
    scheduler.advance(2s);
    const auto before = manager->items();
    const int changes = itemChanges;
    manager->copyToClipboard(before[1]);
    EXPECT_EQ(manager->items(), before);
    EXPECT_EQ(manager->items()[1].timestamp, before[1].timestamp);
    EXPECT_EQ(itemChanges, changes);
    EXPECT_FALSE(savesNow());
    EXPECT_FALSE(isPasted);
}

TEST_F(ClipboardManagerTest, ThreeChangesWithinHalfASecondEachAreSavedOnceASecondAfterTheLast) {
    save({{ClipboardContent::text("a"), 1}, {ClipboardContent::text("b"), 2}, {ClipboardContent::text("c"), 3}});
    start();
    const auto untouched = std::filesystem::last_write_time(path);
    for (int i = 0; i < 3; ++i) {
        scheduler.advance(400ms);
        manager->togglePin(manager->items()[i]);
    }
    scheduler.advance(999ms);
    EXPECT_EQ(std::filesystem::last_write_time(path), untouched);
    EXPECT_EQ(summary(saved()), "a b c");
    scheduler.advance(1ms);
    EXPECT_EQ(summary(saved()), "a* b* c*");
    EXPECT_FALSE(savesNow());
}

TEST_F(ClipboardManagerTest, ASaveStillWaitingDoesNotKeepTheHistoryAliveAndIsLost) {
    capture("a");
    manager.reset();
    EXPECT_FALSE(savesNow());
}

TEST_F(ClipboardManagerTest, TheHistorySurvivesARestart) {
    capture("a");
    pasteboard.copyImage(ImageType::Png, "png bytes");
    scheduler.advance(500ms);
    manager->togglePin(manager->items()[1]);
    const auto before = manager->items();
    scheduler.advance(1s);
    start();
    EXPECT_EQ(summary(), "[image] a*");
    EXPECT_EQ(manager->items()[1].timestamp, before[1].timestamp);
    EXPECT_NE(manager->items()[1].id, before[1].id);
    EXPECT_EQ(log, "📋 Loaded 2 items from disk\n");
}

TEST_F(ClipboardManagerTest, AMissingOrBrokenFileLoadsNothingAndLogsNothing) {
    EXPECT_EQ(log, "");
    std::filesystem::create_directories(path.parent_path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(R"({"type":"text","value":"a","timestamp":1})") > 0);
    file.close();
    start();
    EXPECT_EQ(summary(), "");
    EXPECT_EQ(log, "");
}

TEST_F(ClipboardManagerTest, AnEmptyHistoryIsLoadedAndLogged) {
    save({});
    start();
    EXPECT_EQ(log, "📋 Loaded 0 items from disk\n");
}

TEST_F(ClipboardManagerTest, FiftyLoadedEntriesStayUntilTheNextCaptureTrimsThem) {
    QList<ClipboardItem> items;
    for (int i = 0; i < 50; ++i) {
        items.append({ClipboardContent::text(QByteArray::number(i)), 100.0 - i});
    }
    save(items);
    start();
    EXPECT_EQ(manager->items().size(), 50);
    capture("new");
    EXPECT_EQ(manager->items().size(), 20);
    EXPECT_EQ(manager->items().back().content.textValue(), "18");
}

TEST_F(ClipboardManagerTest, AFileIsTakenAsItStandsWithDuplicatesAndInItsOrder) {
    save({{ClipboardContent::text("b"), 1}, {ClipboardContent::text("b"), 3}, {ClipboardContent::text("a"), 2, true}});
    start();
    EXPECT_EQ(summary(), "b b a*");
}

} // namespace

} // namespace zamber::clipboard
