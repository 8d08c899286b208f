// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "UpdateFixture.h"

#include <QStringConverter>

#include <gmock/gmock.h>

#include <map>

namespace zamber::update {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

using UpdateManagerTest = UpdateFixture;

QByteArray firstLine(const QByteArray& head) {
    return head.first(head.indexOf("\r\n"));
}

/// Anything but "updateAvailable" set to true, as JSON.
class NoUpdate : public UpdateFixture, public testing::WithParamInterface<const char*> {};

/// No JSON at all, or none that stands for a whole text.
struct MalformedBody {
    const char* name;
    std::string bytes;

    friend std::ostream& operator<<(std::ostream& stream, const MalformedBody& body) { return stream << body.name; }
};

class Malformed : public UpdateFixture, public testing::WithParamInterface<MalformedBody> {};

} // namespace

TEST_F(UpdateManagerTest, KnowsNothingAtFirst) {
    EXPECT_FALSE(manager->updateAvailable());
    EXPECT_EQ(manager->latestVersion(), QString());
    EXPECT_EQ(manager->downloadUrl(), QString());
    EXPECT_EQ(manager->releaseNotes(), QString());
    EXPECT_FALSE(manager->isMandatory());
    EXPECT_FALSE(manager->isChecking());
    EXPECT_FALSE(manager->lastChecked());
    EXPECT_TRUE(manager->isVersionSkipped()) << "no version is the same as none skipped";
    EXPECT_FALSE(defaults.string(u"skippedVersion"_s)) << "nothing is written";
}

TEST_F(UpdateManagerTest, AGoodReplyFillsEveryField) {
    checkWith(GOOD_REPLY);
    EXPECT_TRUE(manager->updateAvailable());
    EXPECT_EQ(manager->latestVersion(), u"3.0");
    EXPECT_EQ(manager->downloadUrl(), u"https://zamber.example/get");
    EXPECT_EQ(manager->releaseNotes(), u"Fine things");
    EXPECT_TRUE(manager->isMandatory());
    EXPECT_FALSE(manager->isVersionSkipped());
    EXPECT_EQ(manager->lastChecked(), FakeScheduler::START_TIME);
    EXPECT_EQ(log.take(), "🔄 Update available: v3.0\n");
}

TEST_F(UpdateManagerTest, TheRequestCarriesVersionAndBuildAndNothingElseOfTheUser) {
    checkWith(GOOD_REPLY);
    ASSERT_EQ(service.requests.size(), 1);
    EXPECT_EQ(firstLine(service.requests[0]), "GET /api/update/check?version=2.3.4&build=56 HTTP/1.1");
    std::map<QByteArray, QByteArray> fields; // whose names mean the same in capitals and in small letters
    const QList<QByteArray> lines = service.requests[0].split('\n');
    for (const QByteArray& line : lines.sliced(1)) {
        const qsizetype colon = line.indexOf(':');
        fields[line.first(colon).toLower()] = line.sliced(colon + 1).trimmed();
    }
    EXPECT_THAT(fields, testing::UnorderedElementsAre(testing::Key("host"), testing::Key("connection"),
                                                      testing::Key("accept-encoding"), testing::Key("accept-language"),
                                                      testing::Key("user-agent")));
    EXPECT_EQ(fields["accept-language"], "*") << "the user's language stays here";
    EXPECT_EQ(fields["user-agent"], "Mozilla/5.0") << "and so does what the system is";
}

TEST_F(UpdateManagerTest, ACookieIsNeverSentBack) {
    service.answer = HttpsServer::reply(GOOD_REPLY, "200 OK", "Set-Cookie: who=you; Path=/\r\n");
    check();
    check();
    ASSERT_EQ(service.requests.size(), 2);
    EXPECT_FALSE(service.requests[1].toLower().contains("cookie"));
}

TEST_F(UpdateManagerTest, AVersionWithAPlusSignIsSentUnencoded) {
    bundle.versionText = u"1.0+beta"_s;
    checkWith(GOOD_REPLY);
    ASSERT_EQ(service.requests.size(), 1);
    EXPECT_EQ(firstLine(service.requests[0]), "GET /api/update/check?version=1.0+beta&build=56 HTTP/1.1");
}

TEST_F(UpdateManagerTest, AVersionWithASpaceMakesNoAddressAndTheCheckSilentlyDoesNothing) {
    bundle.versionText = u"1.0 beta"_s;
    manager->checkForUpdates();
    EXPECT_FALSE(manager->isChecking());
    EXPECT_FALSE(waitUntil([this] { return service.connections > 0; }, 200ms));
    EXPECT_FALSE(manager->lastChecked());
    EXPECT_EQ(log.take(), "");
}

TEST_F(UpdateManagerTest, ABundleWithoutABuildSendsBuild1) {
    bundle.buildText.reset();
    EXPECT_EQ(manager->currentBuild(), 1);
    checkWith(GOOD_REPLY);
    EXPECT_TRUE(firstLine(service.requests[0]).contains("&build=1 "));
}

TEST_F(UpdateManagerTest, ABuildThatIsNoWholeDecimalNumberSendsBuild1) {
    for (const QString& build : {u"1.2"_s, u""_s, u" 7"_s, u"7 "_s, u"0x10"_s, u"seven"_s, u"7a"_s, u"٧"_s, u"+"_s,
                                 u"+-7"_s, u"99999999999999999999"_s}) {
        bundle.buildText = build;
        EXPECT_EQ(manager->currentBuild(), 1) << build.toStdString();
    }
    bundle.buildText = u"007"_s;
    EXPECT_EQ(manager->currentBuild(), 7);
    bundle.buildText = u"+8"_s;
    EXPECT_EQ(manager->currentBuild(), 8);
    bundle.buildText = u"-9"_s;
    EXPECT_EQ(manager->currentBuild(), -9);
}

TEST_F(UpdateManagerTest, ABundleWithoutAVersionIsVersion1) {
    bundle.versionText.reset();
    EXPECT_EQ(manager->currentVersion(), u"1.0.0");
}

TEST_F(UpdateManagerTest, AReplyOfOnlyTheFlagHasAnEmptyVersionAddressAndNotes) {
    checkWith(GOOD_REPLY);
    log.take();
    checkWith(R"({"updateAvailable": true})");
    EXPECT_TRUE(manager->updateAvailable());
    EXPECT_EQ(manager->latestVersion(), QString());
    EXPECT_EQ(manager->downloadUrl(), QString());
    EXPECT_EQ(manager->releaseNotes(), QString());
    EXPECT_FALSE(manager->isMandatory());
    EXPECT_EQ(log.take(), "🔄 Update available: v\n");
}

TEST_F(UpdateManagerTest, AnEmptyLatestVersionCountsAsSkippedForTheBannerAndIsStillAnUpdateForThePage) {
    checkWith(R"({"updateAvailable": true, "latestVersion": ""})");
    EXPECT_TRUE(manager->updateAvailable());
    EXPECT_TRUE(manager->isVersionSkipped());
}

TEST_F(UpdateManagerTest, FieldsOfTheWrongTypeAreEmpty) {
    checkWith(R"({"updateAvailable": true, "latestVersion": 3, "downloadUrl": ["x"], "releaseNotes": {},)"
              R"( "mandatory": "true", "other": 1})");
    EXPECT_TRUE(manager->updateAvailable());
    EXPECT_EQ(manager->latestVersion(), QString());
    EXPECT_EQ(manager->downloadUrl(), QString());
    EXPECT_EQ(manager->releaseNotes(), QString());
    EXPECT_FALSE(manager->isMandatory());
}

TEST_P(NoUpdate, ClearsTheFlagAndKeepsTheRest) {
    checkWith(GOOD_REPLY);
    log.take();
    scheduler.advance(7s);
    checkWith(GetParam());
    EXPECT_FALSE(manager->updateAvailable());
    EXPECT_EQ(manager->latestVersion(), u"3.0");
    EXPECT_EQ(manager->downloadUrl(), u"https://zamber.example/get");
    EXPECT_EQ(manager->releaseNotes(), u"Fine things");
    EXPECT_TRUE(manager->isMandatory());
    EXPECT_EQ(manager->lastChecked(), FakeScheduler::START_TIME + 7);
    EXPECT_EQ(log.take(), "");
}

INSTANTIATE_TEST_SUITE_P(Json, NoUpdate,
                         testing::Values("{}", R"({"updateAvailable": false})", R"({"updateAvailable": "true"})",
                                         R"({"updateAvailable": 1})", R"({"updateAvailable": null})",
                                         R"({"updateAvailable": [true]})", R"({"UpdateAvailable": true})", "[]",
                                         R"([{"updateAvailable": true}])",
                                         R"({"updateAvailable": false, "latestVersion": "9"})"));

TEST_P(Malformed, IsLoggedAsAParseErrorAndKeepsTheState) {
    checkWith(GOOD_REPLY);
    log.take();
    scheduler.advance(7s);
    checkWith(QByteArray::fromStdString(GetParam().bytes));
    EXPECT_TRUE(manager->updateAvailable());
    EXPECT_EQ(manager->latestVersion(), u"3.0");
    EXPECT_EQ(manager->lastChecked(), FakeScheduler::START_TIME + 7);
    EXPECT_THAT(log.take(), StartsWith("⚠️ Update parse error: "));
}

INSTANTIATE_TEST_SUITE_P(
    Body, Malformed,
    testing::Values(MalformedBody{"nothing", ""}, MalformedBody{"a blank", " "}, MalformedBody{"half of braces", "{"},
                    MalformedBody{"the other half", "}"}, MalformedBody{"cut off", R"({"updateAvailable": true)"},
                    MalformedBody{"a cut off word", R"({"updateAvailable": tru})"},
                    MalformedBody{"no colon", R"({"updateAvailable" true})"},
                    MalformedBody{"the wrong quotes", R"({'updateAvailable': true})"},
                    MalformedBody{"something after it", R"({"updateAvailable": true} x)"},
                    MalformedBody{"a comma too many", R"({"updateAvailable": true,})"},
                    MalformedBody{"true alone", "true"}, MalformedBody{"null alone", "null"},
                    MalformedBody{"a text alone", "\"text\""}, MalformedBody{"a number alone", "7"},
                    MalformedBody{"a page", "<html>Sign in to the network</html>"},
                    MalformedBody{"no UTF-8", "{\"latestVersion\": \"\xFF\xFE\", \"updateAvailable\": true}"},
                    MalformedBody{"zeros", std::string(64, '\0')},
                    MalformedBody{"deep nesting", std::string(100'000, '[')}));

TEST_F(UpdateManagerTest, ASkippedVersionHidesTheBannerAtOnceAndThroughLaterChecksOfTheSameVersion) {
    checkWith(GOOD_REPLY);
    int changes = 0;
    QObject::connect(manager.get(), &UpdateManager::changed, manager.get(), [&changes] { ++changes; });
    manager->skipVersion();
    EXPECT_FALSE(manager->updateAvailable());
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(manager->isVersionSkipped());
    EXPECT_EQ(defaults.string(u"skippedVersion"_s), u"3.0");

    check();
    EXPECT_TRUE(manager->updateAvailable());
    EXPECT_TRUE(manager->isVersionSkipped()) << "the banner stays away";

    checkWith(R"({"updateAvailable": true, "latestVersion": "3.1"})");
    EXPECT_FALSE(manager->isVersionSkipped()) << "until there is another";
}

TEST_F(UpdateManagerTest, PressingTheButtonTwiceQuicklySendsOneRequest) {
    service.answer = HttpsServer::reply(GOOD_REPLY);
    manager->checkForUpdates();
    EXPECT_TRUE(manager->isChecking());
    manager->checkForUpdates();
    ASSERT_TRUE(waitUntil([this] { return !manager->isChecking(); }));
    EXPECT_FALSE(waitUntil([this] { return service.requests.size() > 1; }, 200ms));
    EXPECT_EQ(service.requests.size(), 1);
}

TEST_F(UpdateManagerTest, ObserversHearOfTheBeginningAndTheEndOfACheck) {
    service.answer = HttpsServer::reply(GOOD_REPLY);
    QList<bool> states;
    QObject::connect(manager.get(), &UpdateManager::changed, manager.get(),
                     [&] { states.append(manager->isChecking()); });
    check();
    EXPECT_EQ(states, (QList<bool>{true, false}));
}

TEST_F(UpdateManagerTest, TheFirstCheckIsAfterFiveSecondsAndThenEveryFourHours) {
    service.answer = HttpsServer::reply("{}");
    manager->startPeriodicChecks();
    scheduler.advance(4999ms);
    EXPECT_FALSE(manager->isChecking());
    scheduler.advance(1ms);
    EXPECT_TRUE(manager->isChecking());
    ASSERT_TRUE(waitUntil([this] { return !manager->isChecking(); }));
    scheduler.advance(14400s - 5s - 1ms);
    EXPECT_FALSE(manager->isChecking());
    scheduler.advance(1ms);
    EXPECT_TRUE(manager->isChecking());
    ASSERT_TRUE(waitUntil([this] { return !manager->isChecking(); }));
    scheduler.advance(14400s);
    EXPECT_TRUE(manager->isChecking());
}

TEST_F(UpdateManagerTest, AReplyMayComeInAnyOfUnicodesEncodings) {
    using Encoding = QStringConverter::Encoding;
    for (const auto encoding :
         {Encoding::Utf8, Encoding::Utf16LE, Encoding::Utf16BE, Encoding::Utf32LE, Encoding::Utf32BE}) {
        for (const auto mark : {QStringConverter::Flag::Default, QStringConverter::Flag::WriteBom}) {
            checkWith("{}");
            ASSERT_FALSE(manager->updateAvailable());
            QStringEncoder encode(encoding, mark);
            checkWith(encode(QString::fromUtf8(GOOD_REPLY)));
            EXPECT_TRUE(manager->updateAvailable()) << QStringConverter::nameForEncoding(encoding);
        }
    }
}

TEST_F(UpdateManagerTest, StoppingEndsTheRepeatedChecks) {
    manager->stopPeriodicChecks();
    manager->startPeriodicChecks();
    manager->stopPeriodicChecks();
    EXPECT_EQ(scheduler.pendingTimers(), 1U) << "the first check is not the timer's";
}

TEST_F(UpdateManagerTest, ItsTimersHoldItWeakly) {
    manager->startPeriodicChecks();
    const std::weak_ptr<UpdateManager> watched = manager;
    manager.reset();
    EXPECT_TRUE(watched.expired());
    scheduler.advance(30000s);
    EXPECT_FALSE(waitUntil([this] { return service.connections > 0; }, 100ms));
}

TEST_F(UpdateManagerTest, DownloadingOpensTheAddress) {
    checkWith(GOOD_REPLY);
    journal.clear();
    manager->downloadUpdate();
    EXPECT_THAT(journal.entries(), testing::ElementsAre("open https://zamber.example/get"));
}

TEST_F(UpdateManagerTest, DownloadingFromWhatIsNoAddressDoesNothing) {
    manager->downloadUpdate();
    for (const char* const text : {"", "no address", "get", "/etc/passwd", "https://zamber.example/a b"}) {
        checkWith(R"({"updateAvailable": true, "downloadUrl": ")" + QByteArray(text) + "\"}");
        manager->downloadUpdate();
    }
    EXPECT_THAT(journal.entries(), testing::IsEmpty());
}

TEST_F(UpdateManagerTest, TheSharedOneIsTheOneThatWasSet) {
    UpdateManager::setShared(manager);
    EXPECT_EQ(&UpdateManager::shared(), manager.get());
    UpdateManager::setShared(nullptr);
}

TEST_F(UpdateManagerTest, TheDefaultServiceIsAnHttpsAddressThatEndsInApi) {
    EXPECT_TRUE(UpdateManager::defaultApiBase().startsWith(u"https://"));
    EXPECT_TRUE(UpdateManager::defaultApiBase().endsWith(u"/api"));
}

} // namespace zamber::update
