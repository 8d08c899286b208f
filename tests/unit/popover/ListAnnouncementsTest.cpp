// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ListAnnouncements.h"

#include "clipboard/ClipboardManager.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace zamber::popover {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class ListAnnouncementsTest : public testing::Test {
protected:
    ListAnnouncementsTest() {
        manager->startMonitoring();
        for (const char* text : {"cherry cake", "banana bread", "apple tart"}) {
            copy(text);
        }
        announcements = std::make_unique<ListAnnouncements>(
            *manager, scheduler,
            ListAnnouncements::Callbacks{.announce = [this](const QString& sentence) { said.append(sentence); },
                                         .selectedRow = [this] { return selected; }},
            nullptr);
    }

    void copy(const char* text) {
        pasteboard.copyText(text);
        scheduler.advance(1s);
    }

    QTemporaryDir folder;
    FakePasteboard pasteboard;
    FakeUserDefaults defaults;
    FakeScheduler scheduler;
    std::shared_ptr<clipboard::ClipboardManager> manager = clipboard::ClipboardManager::create(
        pasteboard, defaults, scheduler, (folder.path() + u"/history.json"_s).toStdString());
    QStringList said;
    QString selected;
    std::unique_ptr<ListAnnouncements> announcements;
};

} // namespace

TEST_F(ListAnnouncementsTest, WhatASearchHasFoundIsToldOnceTheTypingRests) {
    selected = u"apple tart"_s;
    for (const QString& typed : {u"a"_s, u"ap"_s, u"app"_s}) {
        manager->setSearchText(typed);
        scheduler.advance(200ms);
    }
    EXPECT_EQ(said, QStringList());
    scheduler.advance(400ms);
    EXPECT_EQ(said, QStringList{u"1 entry found: apple tart"_s});

    selected.clear();
    manager->setSearchText(u"nowhere"_s);
    scheduler.advance(1s);
    manager->setSearchText({});
    scheduler.advance(1s);
    EXPECT_EQ(said, (QStringList{u"1 entry found: apple tart"_s, u"No matches found"_s, u"3 entries"_s}));
}

TEST_F(ListAnnouncementsTest, ATextThatIsReadyForSearchingMeanwhileDoesNotKeepTheAnnouncementBack) {
    manager->setSearchText(u"a"_s);
    scheduler.advance(400ms);
    emit manager->searchTextChanged(); // as when a worker has made a search key
    scheduler.advance(100ms);
    EXPECT_EQ(said, QStringList{u"3 entries found"_s});
    emit manager->searchTextChanged();
    scheduler.advance(1s);
    EXPECT_EQ(said.size(), 1) << "it is told once";
}

TEST_F(ListAnnouncementsTest, ChangesOfTheHistoryAreTold) {
    copy("date slice");
    manager->togglePin(manager->items().first());
    manager->togglePin(manager->items().first());
    manager->deleteItem(manager->items().first());
    manager->clearAll();
    EXPECT_EQ(said, (QStringList{u"Copied"_s, u"Pinned"_s, u"Unpinned"_s, u"Deleted"_s, u"3 entries deleted"_s}));
}

TEST_F(ListAnnouncementsTest, NothingIsToldAfterItsEnd) {
    manager->setSearchText(u"a"_s);
    announcements.reset();
    scheduler.advance(1s);
    copy("date slice");
    EXPECT_EQ(said, QStringList());
}

} // namespace zamber::popover
