// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/PortalKeyboard.h"

#include "platform/freedesktop/portal/PortalRecord.h"
#include "tests/contracts/PortalRig.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/support/Waiting.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Consent = PortalKeyboard::Consent;

namespace {

constexpr int CONTROL = 29;
constexpr int V = 47;

/// A program that has started on a desktop whose user grants what is asked for.
class PortalKeyboardTest : public testing::Test {
protected:
    void launch() {
        keyboard.emplace(portals, record);
        ASSERT_TRUE(waitUntil([this] { return keyboard->consent() != Consent::Unknown; }));
    }

    /// The user has been asked and has agreed.
    void launchWithConsent() {
        launch();
        keyboard->askForConsent();
        ASSERT_TRUE(waitUntil([this] { return keyboard->consent() == Consent::Given; }));
        ASSERT_TRUE(waitForNoSession());
    }

    bool open() {
        keyboard->open();
        return waitUntil([this] { return keyboard->isOpen(); });
    }

    void set(const char* name, const QJsonValue& value) { rig.tell({u"set"_s, QString::fromLatin1(name), value}); }
    QByteArray recorded() { return rig.tell({u"record"_s}); }
    bool waitForRecord(const QByteArray& part) {
        return waitUntil([this, part] { return recorded().contains(part); });
    }
    bool waitForNoSession() {
        return waitUntil([this] { return rig.tell({u"open sessions"_s}) == "0"; });
    }

    PortalRig rig{QStringLiteral(ZAMBER_DESKTOP_PORTAL)};
    QTemporaryDir folder;
    FakeScheduler scheduler;
    PortalRecord record{folder.filePath(u"state/portals.conf"_s)};
    Portals portals{u"app.zamber.Zamber"_s, rig.client(), scheduler};
    std::optional<PortalKeyboard> keyboard;
};

} // namespace

TEST_F(PortalKeyboardTest, NobodyIsAskedUnlessTheUserWantsItAndThenOnce) {
    launch();
    EXPECT_EQ(keyboard->consent(), Consent::Missing);
    keyboard->open();
    letPass(100ms);
    EXPECT_FALSE(recorded().contains("start"));

    keyboard->askForConsent();
    ASSERT_TRUE(waitUntil([this] { return keyboard->consent() == Consent::Given; }));
    EXPECT_TRUE(recorded().contains(R"(["select", 1, 2], ["start", "by dialog"])"));
    ASSERT_TRUE(waitForNoSession()) << "a session is open only while it pastes";
    ASSERT_TRUE(open());
    EXPECT_TRUE(recorded().endsWith(R"(["start", "by token"]])"));
}

TEST_F(PortalKeyboardTest, TheKeysArriveInOrderAndThenTheSessionEnds) {
    set("side_by_side", true);
    launchWithConsent();
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(open());
        keyboard->type({CONTROL, V});
        EXPECT_FALSE(keyboard->isOpen());
        keyboard->close(); // does not cut it short
        ASSERT_TRUE(waitForNoSession());
    }
    const QByteArray stroke =
        R"(["start", "by token"], ["key", 29, 1], ["key", 47, 1], ["key", 47, 0], ["key", 29, 0], )"
        R"(["close session", "RemoteDesktop"])";
    EXPECT_EQ(recorded().count(stroke), 3) << recorded().constData();
}

TEST_F(PortalKeyboardTest, TheConsentIsKeptForTheNextStartWhereOthersCannotReadIt) {
    launchWithConsent();
    keyboard.reset();
    launch();
    EXPECT_EQ(keyboard->consent(), Consent::Given);
    const QFile file(folder.filePath(u"state/portals.conf"_s));
    EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_TRUE(open());
}

TEST_F(PortalKeyboardTest, ARefusalIsNoConsent) {
    set("remote", u"refuse"_s);
    launch();
    keyboard->askForConsent();
    ASSERT_TRUE(waitForRecord("by dialog"));
    ASSERT_TRUE(waitForNoSession());
    EXPECT_EQ(keyboard->consent(), Consent::Missing);
    set("remote", u"grant"_s);
    keyboard->askForConsent();
    EXPECT_TRUE(waitUntil([this] { return keyboard->consent() == Consent::Given; })) << "asked once more";
}

TEST_F(PortalKeyboardTest, AConsentThatWasTakenBackIsMissing) {
    launchWithConsent();
    rig.tell({u"revoke"_s});
    set("remote", u"refuse"_s); // the dialog that comes up once more
    keyboard->open();
    ASSERT_TRUE(waitUntil([this] { return keyboard->consent() == Consent::Missing; }));
    EXPECT_FALSE(keyboard->isOpen());
}

TEST_F(PortalKeyboardTest, ATokenThatLeadsToADialogTwiceIsGivenUp) {
    launchWithConsent();
    rig.tell({u"revoke"_s});
    set("remote", u"silent"_s);
    for (const Consent expected : {Consent::Given, Consent::Missing}) {
        keyboard->open();
        ASSERT_TRUE(
            waitForRecord(expected == Consent::Given ? R"(["start", "by dialog"]])" : R"(["start", "by dialog"]])"));
        keyboard->close(); // the paste has waited long enough
        ASSERT_TRUE(waitForRecord(R"(["close dialog"], ["close session", "RemoteDesktop"]])"));
        EXPECT_EQ(keyboard->consent(), expected);
    }
}

TEST_F(PortalKeyboardTest, AConsentThatTheUserDoesNotWantRememberedHoldsForOneSession) {
    set("remembers", false);
    launch();
    keyboard->askForConsent();
    ASSERT_TRUE(waitUntil([this] { return keyboard->isOpen(); }));
    EXPECT_EQ(keyboard->consent(), Consent::Given);
    for (int round = 0; round < 2; ++round) {
        keyboard->type({CONTROL, V});
        ASSERT_TRUE(waitUntil([this] { return keyboard->isOpen(); }));
        keyboard->close();
    }
    EXPECT_EQ(rig.tell({u"open sessions"_s}), "1");
    rig.tell({u"end sessions"_s});
    EXPECT_TRUE(waitUntil([this] { return keyboard->consent() == Consent::Missing; }));
}

TEST_F(PortalKeyboardTest, APortalThatWouldAskAtEveryPasteIsNotUsed) {
    set("remote_version", 1);
    launch();
    EXPECT_EQ(keyboard->consent(), Consent::NotOffered);
}

TEST_F(PortalKeyboardTest, WithoutAPortalThereIsNothingToConsentTo) {
    rig.kill();
    launch();
    EXPECT_EQ(keyboard->consent(), Consent::NotOffered);
}

TEST_F(PortalKeyboardTest, APortalThatDiesEndsTheSessionAndIsOpenedAgainWhenItIsBack) {
    launchWithConsent();
    ASSERT_TRUE(open());
    rig.kill();
    ASSERT_TRUE(waitUntil([this] { return !keyboard->isOpen(); }));
    EXPECT_EQ(keyboard->consent(), Consent::Given);
    rig.start(); // which knows no token any more, but asks
    EXPECT_TRUE(open());
}

} // namespace zamber::freedesktop::portal
