// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/PortalHotKeyCenter.h"
#include "platform/freedesktop/portal/PortalRecord.h"
#include "tests/contracts/PortalRig.h"
#include "tests/fakes/FakeHotKeyCenter.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/support/Waiting.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr HotKeyModifiers COMMAND_SHIFT{.command = true, .shift = true};

/// A program that has registered its three hot keys with a desktop whose user grants what is asked for.
class PortalHotKeys : public testing::Test {
protected:
    /// As the program does when it starts.
    void launch() {
        x.registrations.clear(); // of a start before
        center.emplace(
            PortalHotKeyCenter::Surroundings{
                .portals = portals, .record = record, .hotKeysOfX = x, .scheduler = scheduler},
            [this](PhysicalKey key) { return key == PhysicalKey::V || isQuickPasteOn; }, [this] { ++menusClosed; });
        center->setPressedHandler([this](std::uint32_t id) { pressed.push_back(id); });
        center->registerHotKey(PhysicalKey::V, COMMAND_SHIFT, {1, 1});
        center->registerHotKey(PhysicalKey::Digit2, COMMAND_SHIFT, {1, 2});
        center->registerHotKey(PhysicalKey::Digit3, COMMAND_SHIFT, {1, 3});
    }

    void launchAndBind() {
        launch();
        ASSERT_TRUE(waitUntil([this] { return center->isBound(PhysicalKey::V); }));
    }

    void set(const char* name, const QJsonValue& value) { rig.tell({u"set"_s, QString::fromLatin1(name), value}); }
    QByteArray recorded() { return rig.tell({u"record"_s}); }
    bool waitForRecord(const QByteArray& part) {
        return waitUntil([this, part] { return recorded().contains(part); });
    }
    int timesRecorded(const QByteArray& part) { return static_cast<int>(recorded().count(part)); }

    PortalRig rig{QStringLiteral(ZAMBER_DESKTOP_PORTAL)};
    QTemporaryDir folder;
    FakeScheduler scheduler;
    Journal journal;
    FakeHotKeyCenter x{journal};
    PortalRecord record{folder.filePath(u"state/portals.conf"_s)};
    Portals portals{u"app.zamber.Zamber"_s, rig.client(), scheduler};
    bool isQuickPasteOn = false;
    std::optional<PortalHotKeyCenter> center;
    std::vector<std::uint32_t> pressed;
    int menusClosed = 0;
};

} // namespace

TEST_F(PortalHotKeys, TheProgramRegistersFirstAndAsksForTheOneKeyThatHasAnEffect) {
    launchAndBind();
    EXPECT_EQ(recorded(), R"([["register", "app.zamber.Zamber"], ["bind", {"open": "LOGO+SHIFT+v"}]])");
    rig.tell({u"press"_s, u"open"_s});
    EXPECT_THAT(pressed, ElementsAre(1));
    EXPECT_EQ(menusClosed, 1);
}

TEST_F(PortalHotKeys, TheKeysOfQuickPasteComeAndGoWithThePreference) {
    launchAndBind();
    isQuickPasteOn = true;
    center->update();
    ASSERT_TRUE(waitUntil([this] { return center->isBound(PhysicalKey::Digit3); }));
    EXPECT_TRUE(recorded().endsWith(
        R"(["bind", {"open": "LOGO+SHIFT+v", "paste-second": "LOGO+SHIFT+2", "paste-third": "LOGO+SHIFT+3"}]])"));
    for (const auto& name : {u"paste-third"_s, u"open"_s, u"paste-second"_s}) {
        rig.tell({u"press"_s, name});
    }
    EXPECT_THAT(pressed, ElementsAre(3, 1, 2));
    isQuickPasteOn = false;
    center->update();
    ASSERT_TRUE(waitUntil([this] { return center->isBound(PhysicalKey::V); }));
    EXPECT_FALSE(center->isBound(PhysicalKey::Digit2));
    EXPECT_EQ(rig.tell({u"open sessions"_s}), "1") << "a session that is replaced is closed";
}

TEST_F(PortalHotKeys, ABindingThatIsCalledAFailureIsBelievedWhenItIsListed) {
    set("binds_as_failure", true);
    launchAndBind();
    rig.tell({u"press"_s, u"open"_s});
    EXPECT_THAT(pressed, ElementsAre(1));
    EXPECT_THAT(record.refusedShortcuts(), IsEmpty());
}

TEST_F(PortalHotKeys, ARefusalIsRememberedAndNotAskedAboutAgain) {
    set("shortcuts", u"refuse"_s);
    launch();
    ASSERT_TRUE(waitUntil([this] { return record.refusedShortcuts() == QStringList{u"open"_s}; }));
    EXPECT_FALSE(center->isBound(PhysicalKey::V));
    center.reset();
    launch();
    letPass(200ms);
    EXPECT_EQ(timesRecorded("\"bind\""), 1);
    x.press(PhysicalKey::V);
    EXPECT_THAT(pressed, ElementsAre(1)) << "X's hot key goes on";
}

TEST_F(PortalHotKeys, ADialogThatTheUserHasCancelledIsARefusalWhateverThePortalCallsIt) {
    set("shortcuts", u"cancel"_s);
    launch();
    EXPECT_TRUE(waitUntil([this] { return record.refusedShortcuts() == QStringList{u"open"_s}; }));
}

TEST_F(PortalHotKeys, WhatTheUserTurnsOnIsAskedForAgainAndARefusalLeavesTheRest) {
    launchAndBind();
    set("shortcuts", u"refuse"_s);
    isQuickPasteOn = true;
    center->update();
    ASSERT_TRUE(waitUntil([this] { return record.refusedShortcuts().size() == 2; }));
    ASSERT_TRUE(waitUntil([this] { return center->isBound(PhysicalKey::V); })) << "accepted before";
    EXPECT_FALSE(center->isBound(PhysicalKey::Digit2));

    isQuickPasteOn = false;
    center->update();
    set("shortcuts", u"grant"_s);
    isQuickPasteOn = true;
    center->update();
    EXPECT_TRUE(waitUntil([this] { return center->isBound(PhysicalKey::Digit2); }));
    EXPECT_THAT(record.refusedShortcuts(), IsEmpty());
}

TEST_F(PortalHotKeys, AFailureIsNoRefusal) {
    set("shortcuts", u"fail"_s);
    launch();
    ASSERT_TRUE(waitForRecord("\"list\""));
    letPass(100ms);
    EXPECT_FALSE(center->isBound(PhysicalKey::V));
    EXPECT_THAT(record.refusedShortcuts(), IsEmpty());
    set("shortcuts", u"grant"_s);
    center.reset();
    launchAndBind();
}

TEST_F(PortalHotKeys, ADesktopThatIsStillComingUpIsAskedAgainButNotForEver) {
    set("sessions", u"fail"_s);
    launch();
    for (int failures = 1; failures <= 4; ++failures) {
        ASSERT_TRUE(waitUntil([&] { return timesRecorded("no session") == failures && !center->isAsking(); }));
        scheduler.advance(5s);
    }
    ASSERT_TRUE(waitUntil([&] { return timesRecorded("no session") == 5 && !center->isAsking(); }));
    scheduler.advance(60s);
    letPass(100ms);
    EXPECT_EQ(timesRecorded("no session"), 5);
    set("sessions", u"grant"_s);
    isQuickPasteOn = true;
    center->update();
    EXPECT_TRUE(waitUntil([this] { return center->isBound(PhysicalKey::V); }));
}

TEST_F(PortalHotKeys, ItIsAskingUntilTheUserHasAnswered) {
    set("shortcuts", u"silent"_s);
    launch();
    ASSERT_TRUE(waitForRecord("\"bind\""));
    EXPECT_TRUE(center->isAsking());
    int settled = 0;
    QObject::connect(&*center, &PortalHotKeyCenter::settled, &*center, [&] { ++settled; });
    set("shortcuts", u"grant"_s);
    isQuickPasteOn = true;
    center->update();
    ASSERT_TRUE(waitUntil([this] { return !center->isAsking(); }));
    EXPECT_EQ(settled, 1);
}

TEST_F(PortalHotKeys, UntilAnybodyAnswersXsHotKeysWorkAndTheDialogGoesWithTheProgram) {
    set("shortcuts", u"silent"_s);
    launch();
    ASSERT_TRUE(waitForRecord("\"bind\""));
    x.press(PhysicalKey::V);
    EXPECT_THAT(pressed, ElementsAre(1));
    center.reset();
    EXPECT_TRUE(waitForRecord(R"(["close dialog"], ["close session", "GlobalShortcuts"])"));
}

TEST_F(PortalHotKeys, OnePressIsToldOnceWhereBothTellOfIt) {
    launchAndBind();
    rig.tell({u"press"_s, u"open"_s});
    x.press(PhysicalKey::V);
    EXPECT_THAT(pressed, ElementsAre(1));
}

TEST_F(PortalHotKeys, AShortcutWhoseKeysTheUserTakesAwayIsLeftToX) {
    launchAndBind();
    rig.tell({u"unassign"_s, u"open"_s});
    EXPECT_FALSE(center->isBound(PhysicalKey::V));
    x.press(PhysicalKey::V);
    EXPECT_THAT(pressed, ElementsAre(1));
}

TEST_F(PortalHotKeys, ASessionThatTheDesktopEndsIsNotBegunAgainByItself) {
    launchAndBind();
    rig.tell({u"end sessions"_s});
    EXPECT_TRUE(waitUntil([this] { return !center->isBound(PhysicalKey::V); }));
    letPass(100ms);
    EXPECT_EQ(timesRecorded("\"bind\""), 1);
    x.press(PhysicalKey::V);
    EXPECT_THAT(pressed, ElementsAre(1));
}

TEST_F(PortalHotKeys, APortalThatDiesAndComesBackIsAskedAgain) {
    launchAndBind();
    rig.kill();
    ASSERT_TRUE(waitUntil([this] { return !center->isBound(PhysicalKey::V); }));
    x.press(PhysicalKey::V);
    EXPECT_THAT(pressed, ElementsAre(1));
    rig.start();
    ASSERT_TRUE(waitUntil([this] { return center->isBound(PhysicalKey::V); }));
    EXPECT_TRUE(recorded().startsWith(R"([["register", "app.zamber.Zamber"], ["bind")"));
    rig.tell({u"press"_s, u"open"_s});
    EXPECT_THAT(pressed, ElementsAre(1, 1));
}

TEST_F(PortalHotKeys, APortalThatHangsHoldsNothingUp) {
    rig.suspend();
    launch();
    letPass(100ms);
    x.press(PhysicalKey::V);
    EXPECT_THAT(pressed, ElementsAre(1));
    rig.resume();
    EXPECT_TRUE(waitUntil([this] { return center->isBound(PhysicalKey::V); }));
}

TEST_F(PortalHotKeys, WithoutAnyPortalXsHotKeysAreAllThereIs) {
    rig.kill();
    launch();
    letPass(200ms);
    x.press(PhysicalKey::Digit2);
    EXPECT_THAT(pressed, ElementsAre(2));
}

TEST_F(PortalHotKeys, TheKeysCountAsHeldUntilTheModifiersHaveHadTimeToComeUp) {
    launchAndBind();
    int released = 0;
    QObject::connect(&*center, &PortalHotKeyCenter::keysReleased, &*center, [&] { ++released; });
    rig.tell({u"press"_s, u"open"_s});
    EXPECT_TRUE(center->areKeysHeld());
    rig.tell({u"release"_s, u"open"_s});
    EXPECT_TRUE(center->areKeysHeld());
    scheduler.advance(1s);
    EXPECT_FALSE(center->areKeysHeld());
    EXPECT_EQ(released, 1);
}

} // namespace zamber::freedesktop::portal
