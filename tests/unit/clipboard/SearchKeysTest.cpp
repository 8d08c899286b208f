// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ManagerFixture.h"

#include "clipboard/Search.h"

#include <QDeadlineTimer>
#include <QThread>

#include <thread>

namespace zamber::clipboard {

namespace {

constexpr qsizetype LARGE_BYTES = qsizetype{1} << 20;

QByteArray large(const QByteArray& word) {
    QByteArray text;
    while (text.size() < LARGE_BYTES) {
        text += word + " ";
    }
    return text;
}

/// A history with texts that are too large to be made ready for searching while the user waits.
class SearchKeysTest : public ManagerFixture {
protected:
    int searchChanges = 0;

    void startWith(const QList<QByteArray>& texts) {
        QList<ClipboardItem> items;
        double timestamp = 100;
        for (const auto& text : texts) {
            items.append({ClipboardContent::text(text), timestamp--});
        }
        save(items);
        start();
        QObject::connect(manager.get(), &ClipboardManager::searchTextChanged, manager.get(),
                         [this] { ++searchChanges; });
    }

    bool isReady() const {
        return std::ranges::all_of(
            manager->items(), [](const auto& item) { return item.content.hasSearchKey(text::CaseFolding::Common); });
    }

    /// Turns the main loop, but not the clock, until the other thread has made everything ready.
    bool becomesReady() {
        const QDeadlineTimer bound(60'000);
        while (!isReady() && !bound.hasExpired()) {
            QThread::msleep(1);
            scheduler.advance(0ms);
        }
        return isReady();
    }

    /// The first letter of each entry that is found.
    std::string foundLetters() const {
        std::string letters;
        for (const auto& item : manager->filteredItems()) {
            letters += item.content.bytes().at(0);
        }
        return letters;
    }
};

TEST_F(SearchKeysTest, TextsAreMeasuredBeforeAnybodyAsks) {
    startWith({"apple", large("bear")});
    ASSERT_TRUE(becomesReady());
    for (const auto& item : manager->items()) {
        EXPECT_TRUE(item.content.isMeasured());
    }
}

TEST_F(SearchKeysTest, ALargeTextIsListedAsItIsUntilItIsReady) {
    startWith({"apple", large("bear"), "cherry", large("deer apple")});
    search(QStringLiteral("apple"));
    EXPECT_EQ(foundLetters(), "abd");
    EXPECT_EQ(searchChanges, 1);
    ASSERT_TRUE(becomesReady());
    EXPECT_EQ(foundLetters(), "ad");
    EXPECT_GT(searchChanges, 1) << "the list hears of it";
}

TEST_F(SearchKeysTest, TextsAreMadeReadyWithoutASearch) {
    startWith({large("bear"), large("Großes Tier")});
    EXPECT_FALSE(isReady());
    ASSERT_TRUE(becomesReady());
    EXPECT_NE(scheduler.soonCaller(), std::this_thread::get_id()) << "the main thread has done nothing of it";
    EXPECT_EQ(searchChanges, 0) << "nobody searches";
    search(QStringLiteral("GROSSES"));
    EXPECT_EQ(foundLetters(), "G");
}

TEST_F(SearchKeysTest, ACapturedTextIsMadeReady) {
    startWith({});
    capture(large("bear"));
    ASSERT_TRUE(becomesReady());
    search(QStringLiteral("deer"));
    EXPECT_EQ(foundLetters(), "");
}

TEST_F(SearchKeysTest, ACapturedShortTextIsReadyAtOnce) {
    startWith({});
    capture("apple");
    EXPECT_TRUE(isReady());
    EXPECT_TRUE(manager->items().first().content.isMeasured());
}

TEST_F(SearchKeysTest, ManyShortTextsAreAsMuchAsOneLargeOne) {
    QList<QByteArray> texts;
    for (int number = 0; number < 3000; ++number) {
        texts.append(QByteArray(100, 'x') + QByteArray::number(number));
    }
    startWith(texts);
    search(QStringLiteral("y"));
    EXPECT_FALSE(manager->filteredItems().isEmpty());
    EXPECT_FALSE(isReady());
    ASSERT_TRUE(becomesReady());
    EXPECT_TRUE(manager->filteredItems().isEmpty());
}

TEST_F(SearchKeysTest, EachLetterOfASearchRightAfterTheStartMakesOnlyALittleOfAnyHistoryReady) {
    constexpr qsizetype MADE_READY_A_LETTER_BYTES = 256 * 1024; // some milliseconds of a frame
    startWith(QList<QByteArray>(10'000, QByteArray(2000, 'x')));
    const auto readyBytes = [&] {
        qsizetype bytes = 0;
        for (const auto& item : manager->items()) {
            bytes += item.content.hasSearchKey(text::CaseFolding::Common) ? item.content.bytes().size() : 0;
        }
        return bytes;
    };
    ASSERT_EQ(readyBytes(), 0) << "nothing at the start";
    manager->filteredItems();
    EXPECT_EQ(readyBytes(), 0) << "nothing for a list without a search";
    for (const auto* typed : {"y", "yz", "yzy"}) {
        const auto before = readyBytes();
        search(QString::fromLatin1(typed));
        const auto shown = manager->filteredItems();
        EXPECT_LE(readyBytes() - before, MADE_READY_A_LETTER_BYTES) << typed;
        EXPECT_GT(readyBytes(), before) << typed;
        EXPECT_EQ(shown.size(), 10'000 - readyBytes() / 2000) << "those that are not ready are shown as they are";
    }
    ASSERT_TRUE(becomesReady());
    EXPECT_TRUE(manager->filteredItems().isEmpty());
}

TEST_F(SearchKeysTest, AFewShortTextsAreFoundOrNotAtOnce) {
    startWith({"apple", "bear", "cherry"});
    search(QStringLiteral("apple"));
    EXPECT_EQ(foundLetters(), "a");
    EXPECT_TRUE(isReady());
}

TEST_F(SearchKeysTest, WhatIsUnderWayIsDroppedWithTheManager) {
    startWith({large("bear"), large("Großes Tier"), large("deer")});
    manager.reset();
    scheduler.advance(10s);
    EXPECT_EQ(searchChanges, 0);
}

TEST_F(SearchKeysTest, AnEntryThatIsDeletedMeanwhileStaysAway) {
    startWith({"apple", large("bear")});
    search(QStringLiteral("bear"));
    manager->deleteItem(manager->items()[1]);
    scheduler.advance(1s);
    EXPECT_TRUE(becomesReady());
    EXPECT_EQ(foundLetters(), "");
}

TEST_F(SearchKeysTest, AKeyThatIsNotFinishedIsOfNoUse) {
    const std::atomic<bool> isStopped = true;
    EXPECT_LT(makeSearchKey(large("Großes Tier"), text::CaseFolding::Common, isStopped).size(), LARGE_BYTES / 2);
}

} // namespace

} // namespace zamber::clipboard
