// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/PasteQueue.h"

#include "tests/fakes/FakeScheduler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zamber::freedesktop::selection {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using enum PasteOutcome;

/// A clipboard that others can copy to, and whose own writes are offered at once.
class Clipboard final : public SelectionPasteboard {
public:
    QByteArray offered;
    QByteArray primary = "the user's";

    int write(const QByteArray& text) {
        clearContents();
        setString(text);
        return changeCount();
    }

    /// Another program copies the text.
    void copyElsewhere(const QByteArray& text) {
        m_isOwner = false;
        offered = text;
        CopyReader::Tell tell;
        startReading(
            [&tell](CopyReader::Tell told) {
                tell = std::move(told);
                return std::make_unique<QObject>();
            },
            Counts::AsChange);
        tell(CopyReader::Arrived{.content = {.text = text, .image = {}, .files = {}}});
    }

    /// The owner has changed, and what the new one has is still to be asked for.
    void loseForNow() {
        m_isOwner = false;
        Q_EMIT ownershipChanged();
    }

    void serve(std::uint32_t window) { Q_EMIT served(window); }

    void borrowPrimary(int changeCount, std::function<void()> done) override {
        primary = *contentAt(changeCount).text;
        done();
    }
    void giveBackPrimary() override { primary = "the user's"; }

private:
    void publish(const SelectionContent& content) override {
        m_isOwner = true;
        offered = content.text.value_or(QByteArray());
        noteOffered();
        endPublishing();
    }
    bool isPublishing() const override { return false; }
    bool isOwner() const override { return m_isOwner; }
    bool hasOwner() const override { return true; }
    bool isFormerOwnerRunning() const override { return true; }

    bool m_isOwner = false;
};

constexpr std::uint64_t EDITOR = 11;
constexpr std::uint64_t OURS = 22;
constexpr std::uint32_t READER = 33;

/// A desktop with one window in front.
class Queue final : public PasteQueue {
public:
    Queue(Clipboard& clipboard, Scheduler& scheduler)
        : PasteQueue(clipboard, scheduler)
        , m_clipboard(clipboard) {}

    std::uint64_t front = EDITOR;
    bool isFree = true;     ///< the target is in front and the keys are up
    bool isBlocked = false; ///< the keys that are down let nothing be typed
    bool slips = false;     ///< another window comes to the front just as the keys are typed
    PasteKeystroke keystroke = PasteKeystroke::ControlV;
    QList<QByteArray> inserted; ///< what the windows would get by each keystroke
    QList<PasteOutcome> outcomes;

    using PasteQueue::postWhenReady;

    void paste(int changeCount) {
        postPaste({.changeCount = changeCount, .target = {}},
                  [this](PasteOutcome outcome) { outcomes.append(outcome); });
    }

private:
    std::optional<Window> ownWindowInFront() const override {
        return front == OURS ? std::optional<Window>(OURS) : std::nullopt;
    }
    bool isReady() const override { return isFree; }
    bool isHeldUpByKeys() const override { return isBlocked; }
    std::optional<Window> windowToTypeInto() const override {
        return front != OURS || current().ownWindowInFront == OURS ? std::optional<Window>(front) : std::nullopt;
    }
    PasteKeystroke keystrokeFor(Window /*window*/) const override { return keystroke; }
    bool type(Window /*window*/, PasteKeystroke typed) override {
        if (slips) {
            return false;
        }
        inserted.append(typed == PasteKeystroke::ShiftInsert ? m_clipboard.primary : m_clipboard.offered);
        return true;
    }
    bool mayBeReader(std::uint32_t window) const override { return window == READER; }

    Clipboard& m_clipboard;
};

class PasteQueueTest : public testing::Test {
protected:
    FakeScheduler m_scheduler;
    Clipboard m_clipboard;
    Queue m_queue{m_clipboard, m_scheduler};
};

TEST_F(PasteQueueTest, TypesAtOnceWhereThereIsNothingToWaitFor) {
    m_queue.paste(m_clipboard.write("words"));
    EXPECT_THAT(m_queue.inserted, ElementsAre("words"));
    EXPECT_THAT(m_queue.outcomes, ElementsAre(Posted));
}

TEST_F(PasteQueueTest, WaitsForTheTargetAndTheUsersHands) {
    m_queue.isFree = false;
    m_queue.paste(m_clipboard.write("words"));
    m_scheduler.advance(1999ms);
    m_queue.postWhenReady();
    EXPECT_TRUE(m_queue.inserted.isEmpty());
    m_queue.isFree = true;
    m_queue.postWhenReady();
    EXPECT_THAT(m_queue.inserted, ElementsAre("words"));
    m_scheduler.advance(10s);
    EXPECT_THAT(m_queue.outcomes, ElementsAre(Posted));
}

TEST_F(PasteQueueTest, TypesIntoWhicheverWindowIsInFrontAfterTwoSeconds) {
    m_queue.isFree = false;
    m_queue.paste(m_clipboard.write("words"));
    m_scheduler.advance(1999ms);
    EXPECT_TRUE(m_queue.outcomes.isEmpty());
    m_scheduler.advance(1ms);
    EXPECT_THAT(m_queue.inserted, ElementsAre("words"));
}

TEST_F(PasteQueueTest, WaitsLongerForKeysThatLetNothingBeTyped) {
    m_queue.isFree = false;
    m_queue.isBlocked = true;
    m_queue.paste(m_clipboard.write("words"));
    m_scheduler.advance(9999ms);
    EXPECT_TRUE(m_queue.outcomes.isEmpty());
    m_queue.isFree = true;
    m_queue.isBlocked = false;
    m_queue.postWhenReady();
    EXPECT_THAT(m_queue.inserted, ElementsAre("words"));
    EXPECT_THAT(m_queue.outcomes, ElementsAre(Posted));
}

TEST_F(PasteQueueTest, GivesUpWhereSuchKeysAreHeldForTenSeconds) {
    m_queue.isFree = false;
    m_queue.isBlocked = true;
    m_queue.paste(m_clipboard.write("words"));
    m_scheduler.advance(10s);
    EXPECT_THAT(m_queue.outcomes, ElementsAre(GivenUp));
    EXPECT_TRUE(m_queue.inserted.isEmpty());
}

TEST_F(PasteQueueTest, TypesNothingOnceAnotherProgramHasCopied) {
    m_queue.isFree = false;
    m_queue.paste(m_clipboard.write("words"));
    m_clipboard.copyElsewhere("newer");
    EXPECT_THAT(m_queue.outcomes, ElementsAre(GivenUp));
    m_queue.isFree = true;
    m_queue.postWhenReady();
    m_scheduler.advance(10s);
    EXPECT_TRUE(m_queue.inserted.isEmpty());
    EXPECT_EQ(m_clipboard.offered, "newer");
}

TEST_F(PasteQueueTest, OffersAgainWhatAnotherProgramHasTakenWithoutACopy) {
    m_queue.isFree = false;
    m_queue.paste(m_clipboard.write("words"));
    m_clipboard.offered.clear();
    m_clipboard.loseForNow();
    m_queue.isFree = true;
    m_queue.postWhenReady();
    EXPECT_THAT(m_queue.inserted, ElementsAre("words"));
}

TEST_F(PasteQueueTest, TypesNothingIntoAWindowOfOursThatHasComeSince) {
    m_queue.isFree = false;
    m_queue.paste(m_clipboard.write("words"));
    m_queue.front = OURS;
    m_scheduler.advance(2s);
    EXPECT_TRUE(m_queue.inserted.isEmpty());
    EXPECT_THAT(m_queue.outcomes, ElementsAre(GivenUp));
}

TEST_F(PasteQueueTest, TypesIntoAWindowOfOursThatWasInFrontAtTheCall) {
    m_queue.front = OURS;
    m_queue.paste(m_clipboard.write("words"));
    EXPECT_THAT(m_queue.inserted, ElementsAre("words"));
}

TEST_F(PasteQueueTest, ThreeInARowInsertTheirOwnAndTheLastOneStays) {
    m_queue.isFree = false;
    for (const char* const text : {"one", "two", "three"}) {
        m_queue.paste(m_clipboard.write(text));
    }
    EXPECT_EQ(m_clipboard.offered, "one");
    m_queue.isFree = true;
    m_queue.postWhenReady();
    EXPECT_THAT(m_queue.inserted, ElementsAre("one"));
    m_scheduler.advance(999ms);
    EXPECT_EQ(m_clipboard.offered, "one") << "the editor has not asked yet";
    m_scheduler.advance(1ms);
    m_scheduler.advance(1s);
    EXPECT_THAT(m_queue.inserted, ElementsAre("one", "two", "three"));
    m_scheduler.advance(10s);
    EXPECT_EQ(m_clipboard.offered, "three");
    EXPECT_THAT(m_queue.outcomes, ElementsAre(Posted, Posted, Posted));
}

TEST_F(PasteQueueTest, TheNextOneComesShortlyAfterTheProgramHasAskedForTheLast) {
    m_queue.paste(m_clipboard.write("one"));
    m_queue.paste(m_clipboard.write("two"));
    m_clipboard.serve(READER);
    m_scheduler.advance(59ms);
    m_clipboard.serve(READER); // for another form
    m_scheduler.advance(59ms);
    EXPECT_THAT(m_queue.inserted, ElementsAre("one"));
    m_scheduler.advance(1ms);
    EXPECT_THAT(m_queue.inserted, ElementsAre("one", "two"));
}

TEST_F(PasteQueueTest, AnotherProgramThatLooksAtTheClipboardDoesNotCount) {
    m_queue.paste(m_clipboard.write("one"));
    m_queue.paste(m_clipboard.write("two"));
    m_clipboard.serve(READER + 1);
    m_scheduler.advance(999ms);
    EXPECT_THAT(m_queue.inserted, ElementsAre("one"));
}

TEST_F(PasteQueueTest, WhatIsWrittenMeanwhileIsOfferedOnceTheProgramHasAsked) {
    m_queue.paste(m_clipboard.write("words"));
    m_clipboard.write("only copied");
    EXPECT_EQ(m_clipboard.offered, "words");
    m_clipboard.serve(READER);
    m_scheduler.advance(60ms);
    EXPECT_EQ(m_clipboard.offered, "only copied");
}

TEST_F(PasteQueueTest, TheSameContentAgainWaitsForNobody) {
    const int written = m_clipboard.write("words");
    m_queue.paste(written);
    m_queue.paste(written);
    EXPECT_THAT(m_queue.inserted, ElementsAre("words", "words"));
}

TEST_F(PasteQueueTest, OneThatIsGivenUpKeepsNoOtherWaiting) {
    m_queue.isFree = false;
    m_queue.paste(m_clipboard.write("one"));
    m_clipboard.copyElsewhere("newer");
    m_queue.isFree = true;
    m_queue.paste(m_clipboard.write("two"));
    EXPECT_THAT(m_queue.inserted, ElementsAre("two"));
    EXPECT_THAT(m_queue.outcomes, ElementsAre(GivenUp, Posted));
}

TEST_F(PasteQueueTest, PrimaryIsLentToAProgramThatPastesItAndGivenBack) {
    m_queue.keystroke = PasteKeystroke::ShiftInsert;
    m_queue.paste(m_clipboard.write("words"));
    EXPECT_THAT(m_queue.inserted, ElementsAre("words"));
    EXPECT_EQ(m_clipboard.primary, "words") << "the program has not asked yet";
    m_clipboard.serve(READER);
    m_scheduler.advance(60ms);
    EXPECT_EQ(m_clipboard.primary, "the user's");
}

TEST_F(PasteQueueTest, AWindowThatSlipsAwayIsWaitedForUntilTheBound) {
    m_queue.slips = true;
    m_queue.paste(m_clipboard.write("words"));
    EXPECT_TRUE(m_queue.outcomes.isEmpty());
    m_queue.slips = false;
    m_queue.postWhenReady();
    EXPECT_THAT(m_queue.inserted, ElementsAre("words"));
}

TEST_F(PasteQueueTest, AWindowThatSlipsAwayAtTheBoundGetsNothing) {
    m_queue.slips = true;
    m_queue.paste(m_clipboard.write("words"));
    m_scheduler.advance(2s);
    EXPECT_TRUE(m_queue.inserted.isEmpty());
    EXPECT_THAT(m_queue.outcomes, ElementsAre(GivenUp));
}

TEST_F(PasteQueueTest, AnAnswerMayAskForTheNextPaste) {
    const int written = m_clipboard.write("words");
    m_queue.postPaste({.changeCount = written, .target = {}}, [&](PasteOutcome) { m_queue.paste(written); });
    EXPECT_THAT(m_queue.inserted, ElementsAre("words", "words"));
    EXPECT_THAT(m_queue.outcomes, ElementsAre(Posted));
}

} // namespace

} // namespace zamber::freedesktop::selection
