// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/web/ProcessWebClient.h"

#include "tests/fakes/FakeScheduler.h"
#include "tests/support/Waiting.h"

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <memory>
#include <optional>

namespace zamber::freedesktop::web {

using namespace std::chrono_literals;

namespace {

constexpr auto NO_ANSWER = "The request ended without an answer.";

/// A client whose program is a script, and a clock that stands still.
class ProcessWebClientTest : public testing::Test {
protected:
    void get(const QByteArray& script) {
        QFile file(program);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("#!/bin/sh\ncd '" + folder.path().toUtf8() + "'\n" + script);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        file.close();
        start();
    }

    void start() {
        calls = 0;
        request = client.get(QUrl(QStringLiteral("https://zamber.example/a?b=1.0+c&d=%20")), [this](const auto& told) {
            ++calls;
            answer = told;
            request.reset();
        });
        EXPECT_EQ(calls, 0);
    }

    void expectFailure(const char* reason) {
        ASSERT_TRUE(waitUntil([this] { return calls > 0; }));
        ASSERT_FALSE(answer->has_value()) << (*answer)->toStdString();
        EXPECT_EQ(answer->error().toStdString(), reason);
        EXPECT_EQ(scheduler.pendingTimers(), 0U);
    }

    /// The number of the process that has written it down.
    pid_t process() {
        QFile file(folder.filePath(QStringLiteral("number")));
        EXPECT_TRUE(waitUntil([&file] { return file.size() > 0; }));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().trimmed().toInt();
    }

    static bool isGone(pid_t process) { return kill(process, 0) != 0 && errno == ESRCH; }

    QTemporaryDir folder;
    QString program = folder.filePath(QStringLiteral("fetch"));
    FakeScheduler scheduler;
    ProcessWebClient client{scheduler, program};
    std::unique_ptr<WebClient::Request> request;
    int calls = 0;
    std::optional<WebClient::Answer> answer;
};

constexpr auto HANG = "echo $$ >new; mv new number; exec sleep 1000";

} // namespace

TEST_F(ProcessWebClientTest, HandsTheAddressOverAndTheBodyBack) {
    get(R"(printf 'body %d\n%s' ${#1} "$1")");
    ASSERT_TRUE(waitUntil([this] { return calls > 0; }));
    ASSERT_TRUE(answer->has_value()) << answer->error().toStdString();
    EXPECT_EQ(**answer, "https://zamber.example/a?b=1.0+c&d=%20");
    EXPECT_EQ(scheduler.pendingTimers(), 0U);
}

TEST_F(ProcessWebClientTest, ABodyMayComeInPieces) {
    get("printf 'bo'; sleep 0.05; printf 'dy 4\n'; sleep 0.05; printf 'ab'; sleep 0.05; printf 'cd'");
    ASSERT_TRUE(waitUntil([this] { return calls > 0; }));
    ASSERT_TRUE(answer->has_value()) << answer->error().toStdString();
    EXPECT_EQ(**answer, "abcd");
}

TEST_F(ProcessWebClientTest, AFailureIsToldInItsOwnWords) {
    get("printf 'failure 9\nNo route.'; exit 1");
    expectFailure("No route.");
}

TEST_F(ProcessWebClientTest, AProgramThatIsNotThereIsAFailure) {
    start();
    ASSERT_TRUE(waitUntil([this] { return calls > 0; }));
    ASSERT_FALSE(answer->has_value());
    EXPECT_TRUE(answer->error().startsWith(QStringLiteral("The request could not be started: ")))
        << answer->error().toStdString();
    letPass(50ms);
    EXPECT_EQ(calls, 1);
}

TEST_F(ProcessWebClientTest, AnythingButAWholeAnswerIsAFailure) {
    for (const char* const script :
         {"exit 0", "exit 1", "kill -KILL $$", "printf 'body 10\nhalf'", "printf 'body 1\nxx'", "printf 'hello'",
          "printf 'body 2\n{}'; exit 1", "printf 'failure 2\nno'; exit 0", "printf 'body 2\n{}'; kill -SEGV $$"}) {
        SCOPED_TRACE(script);
        get(script);
        expectFailure(NO_ANSWER);
    }
}

TEST_F(ProcessWebClientTest, AProcessThatWritesTooMuchIsEnded) {
    get("echo $$ >number; exec cat /dev/zero");
    const pid_t endless = process();
    expectFailure("The answer is larger than 1 MB.");
    EXPECT_TRUE(isGone(endless));
}

TEST_F(ProcessWebClientTest, AProcessThatHangsIsEndedAfterSixtySeconds) {
    get(HANG);
    const pid_t hung = process();
    scheduler.advance(60s - 1ms);
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(isGone(hung));
    scheduler.advance(1ms);
    expectFailure("The request timed out.");
    EXPECT_TRUE(isGone(hung));
    letPass(50ms);
    EXPECT_EQ(calls, 1);
}

TEST_F(ProcessWebClientTest, TheProcessGoesWithTheRequest) {
    get(HANG);
    const pid_t hung = process();
    request.reset();
    EXPECT_TRUE(isGone(hung));
    EXPECT_EQ(scheduler.pendingTimers(), 0U);
    letPass(50ms);
    EXPECT_EQ(calls, 0);
}

TEST_F(ProcessWebClientTest, ItsInputIsOpenAndEmptyWhileTheRequestIsUnderWay) {
    get("echo $$ >new; mv new number; read line; exit 0");
    const pid_t waiting = process();
    letPass(100ms);
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(isGone(waiting));
}

TEST_F(ProcessWebClientTest, OurOwnProgramIsBesideThisOneOrWhereItIsInstalled) {
    const QString path = ProcessWebClient::installedProgram();
    EXPECT_TRUE(path.startsWith(u'/') && path.endsWith(QStringLiteral("/zamber/zamber-fetch"))) << path.toStdString();
    EXPECT_FALSE(path.contains(QStringLiteral(".."))) << path.toStdString();
}

} // namespace zamber::freedesktop::web
