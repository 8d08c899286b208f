// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "UpdateFixture.h"

#include <QProcess>

#include <gmock/gmock.h>

#include <algorithm>

namespace zamber::update {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::StartsWith;

namespace {

constexpr auto FAILED = "⚠️ Update check failed: ";
constexpr auto TIMED_OUT = "⚠️ Update check failed: The request timed out.\n";

QByteArray gzipped(const QByteArray& bytes) {
    QProcess gzip;
    gzip.start(u"gzip"_s, {u"-c"_s});
    gzip.write(bytes);
    gzip.closeWriteChannel();
    EXPECT_TRUE(gzip.waitForFinished(20'000));
    return gzip.readAllStandardOutput();
}

/// What comes over the wire, or does not.
class UpdateTransport : public UpdateFixture {
protected:
    /// An earlier check was answered; a later one is not, and so changes nothing of that answer.
    void learnOfAnUpdate() {
        checkWith(R"({"updateAvailable": true, "latestVersion": "2.9", "downloadUrl": "https://zamber.example/old"})");
        ASSERT_EQ(log.take(), "🔄 Update available: v2.9\n");
        known = u"2.9"_s;
        service.requests.clear();
        access.arrivals = 0;
        scheduler.advance(7s);
    }

    /// The state of the earlier good answer, where there was one, is kept, and the time of the failure is noted.
    void expectFailureIsLoggedAndStateKept(const std::string& line = FAILED) {
        EXPECT_FALSE(manager->isChecking());
        EXPECT_EQ(manager->updateAvailable(), !known.isEmpty());
        EXPECT_EQ(manager->latestVersion(), known);
        EXPECT_EQ(manager->downloadUrl(), known.isEmpty() ? QString() : u"https://zamber.example/old"_s);
        EXPECT_EQ(manager->lastChecked(), scheduler.now());
        const std::string text = log.take();
        EXPECT_THAT(text, StartsWith(line));
        EXPECT_GT(text.size(), std::string(FAILED).size() + 1) << "it says why";
        EXPECT_EQ(std::ranges::count(text, '\n'), 1);
    }

    /// The version of the earlier answer.
    QString known;

    void startAndWaitForRequest() {
        manager->checkForUpdates();
        ASSERT_TRUE(waitUntil([this] { return !service.requests.isEmpty(); }));
    }
};

/// A status whose good body is used all the same.
class AnyStatus : public UpdateTransport, public testing::WithParamInterface<const char*> {};

} // namespace

TEST_P(AnyStatus, DoesNotMatterWhenTheBodyIsGood) {
    service.answer = HttpsServer::reply(GOOD_REPLY, GetParam());
    check();
    EXPECT_TRUE(manager->updateAvailable());
    EXPECT_EQ(manager->latestVersion(), u"3.0");
    EXPECT_EQ(log.take(), "🔄 Update available: v3.0\n");
}

INSTANTIATE_TEST_SUITE_P(Statuses, AnyStatus,
                         testing::Values("200 OK", "201 Created", "203 Non-Authoritative", "400 Bad Request",
                                         "401 Unauthorized", "403 Forbidden", "404 Not Found", "405 Not Allowed",
                                         "410 Gone", "418 Teapot", "429 Too Many", "500 Internal Server Error",
                                         "502 Bad Gateway", "503 Unavailable", "599 Odd"));

TEST_F(UpdateTransport, AStatusThatAsksForAPasswordIsAnAnswerLikeAnyOther) {
    service.answer = HttpsServer::reply(GOOD_REPLY, "401 Unauthorized", "WWW-Authenticate: Basic realm=\"x\"\r\n");
    check();
    EXPECT_TRUE(manager->updateAvailable());
    EXPECT_EQ(service.requests.size(), 1);
}

TEST_F(UpdateTransport, ARedirectIsFollowed) {
    service.answer = [this](QSslSocket& client) {
        if (service.requests.size() == 1) {
            HttpsServer::reply("{}", "302 Found", "Location: /elsewhere\r\n")(client);
        } else {
            HttpsServer::reply(GOOD_REPLY)(client);
        }
    };
    check();
    EXPECT_TRUE(manager->updateAvailable());
    ASSERT_EQ(service.requests.size(), 2);
    EXPECT_TRUE(service.requests[1].startsWith("GET /elsewhere HTTP/1.1\r\n"));
    EXPECT_FALSE(service.requests[1].toLower().contains("\nreferer:"));
}

TEST_F(UpdateTransport, ARedirectToNowhereIsAnAnswerLikeAnyOther) {
    for (const char* status : {"300 Multiple Choices", "301 Moved Permanently", "302 Found", "303 See Other",
                               "307 Temporary Redirect", "308 Permanent Redirect"}) {
        service.answer = HttpsServer::reply("{}");
        check();
        ASSERT_FALSE(manager->updateAvailable());
        service.answer = HttpsServer::reply(GOOD_REPLY, status);
        check();
        EXPECT_TRUE(manager->updateAvailable()) << status;
    }
}

TEST_F(UpdateTransport, ARedirectThatNeverEndsIsAFailure) {
    learnOfAnUpdate();
    service.answer = HttpsServer::reply("{}", "302 Found", "Location: /again\r\n");
    check();
    expectFailureIsLoggedAndStateKept();
}

TEST_F(UpdateTransport, ARedirectOutOfTlsIsAFailure) {
    learnOfAnUpdate();
    PlainServer plain("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n{}");
    const QByteArray port = QByteArray::number(plain.server.serverPort());
    service.answer = HttpsServer::reply("{}", "302 Found", "Location: http://127.0.0.1:" + port + "/\r\n");
    check();
    expectFailureIsLoggedAndStateKept();
    EXPECT_EQ(plain.connections, 0);
}

TEST_F(UpdateTransport, TenSecondsWithoutAByteAreAskedFor) {
    checkWith(GOOD_REPLY);
    EXPECT_EQ(access.transferTimeout, 10s);
}

TEST_F(UpdateTransport, AServiceThatSendsNothingIsAFailure) {
    learnOfAnUpdate();
    access.usedTransferTimeout = 100ms;
    service.answer = [](QSslSocket&) {};
    check();
    EXPECT_EQ(service.requests.size(), 1);
    expectFailureIsLoggedAndStateKept(TIMED_OUT);
}

TEST_F(UpdateTransport, AServiceThatNeverSpeaksTlsIsAFailure) {
    PlainServer mute({});
    manager = managerFor(mute.apiBase());
    access.usedTransferTimeout = 100ms;
    check();
    EXPECT_EQ(mute.connections, 1);
    expectFailureIsLoggedAndStateKept(TIMED_OUT);
}

TEST_F(UpdateTransport, AServiceThatStopsInTheMiddleIsAFailure) {
    learnOfAnUpdate();
    access.usedTransferTimeout = 300ms;
    service.answer = [](QSslSocket& client) {
        client.write("HTTP/1.1 200 OK\r\nContent-Length: 22\r\n\r\n{\"updateAvailable\"");
    };
    check();
    expectFailureIsLoggedAndStateKept(TIMED_OUT);
}

TEST_F(UpdateTransport, AServiceThatDripsForEverIsAFailureAfterSixtySeconds) {
    learnOfAnUpdate();
    service.answer = [](QSslSocket& client) { client.write("HTTP/1.1 200 OK\r\nContent-Length: 900000\r\n\r\n"); };
    startAndWaitForRequest();
    for (int second = 0; second < 55; second += 5) {
        service.lastClient->write(" ");
        ASSERT_TRUE(waitUntil([&] { return access.arrivals == second / 5 + 1; }));
        scheduler.advance(5s);
        ASSERT_TRUE(manager->isChecking());
    }
    service.lastClient->write(" ");
    ASSERT_TRUE(waitUntil([&] { return access.arrivals == 12; }));
    scheduler.advance(4999ms);
    EXPECT_TRUE(manager->isChecking());
    scheduler.advance(1ms);
    expectFailureIsLoggedAndStateKept(TIMED_OUT);
}

TEST_F(UpdateTransport, NoTimerIsLeftAfterACheck) {
    checkWith(GOOD_REPLY);
    EXPECT_EQ(scheduler.pendingTimers(), 0U);
}

TEST_F(UpdateTransport, AMegabyteIsRead) {
    const QByteArray body = QByteArray(GOOD_REPLY) + QByteArray(1'000'000 - qstrlen(GOOD_REPLY), ' ');
    checkWith(body);
    EXPECT_TRUE(manager->updateAvailable());
}

TEST_F(UpdateTransport, MoreThanAMegabyteIsAFailure) {
    learnOfAnUpdate();
    checkWith(QByteArray(GOOD_REPLY) + QByteArray(1'000'001 - qstrlen(GOOD_REPLY), ' '));
    expectFailureIsLoggedAndStateKept("⚠️ Update check failed: The answer is larger than 1 MB.\n");
}

TEST_F(UpdateTransport, ABodyWithoutAnEndIsAFailureAsSoonAsItIsTooLarge) {
    learnOfAnUpdate();
    service.answer = [](QSslSocket& client) {
        client.write("HTTP/1.1 200 OK\r\nContent-Length: 99999999999\r\n\r\n");
        const auto feed = [&client] {
            while (client.bytesToWrite() < 100'000) {
                client.write(QByteArray(10'000, '['));
            }
        };
        QObject::connect(&client, &QSslSocket::encryptedBytesWritten, &client, feed);
        feed();
    };
    check();
    expectFailureIsLoggedAndStateKept("⚠️ Update check failed: The answer is larger than 1 MB.\n");
}

TEST_F(UpdateTransport, APackedBodyIsUnpacked) {
    service.answer = HttpsServer::reply(gzipped(GOOD_REPLY), "200 OK", "Content-Encoding: gzip\r\n");
    check();
    EXPECT_TRUE(manager->updateAvailable());
}

TEST_F(UpdateTransport, APackedBodyThatUnpacksToMoreThanAMegabyteIsAFailure) {
    learnOfAnUpdate();
    for (const qsizetype size : {2'000'000, 60'000'000}) {
        service.answer = HttpsServer::reply(gzipped(QByteArray(size, ' ')), "200 OK", "Content-Encoding: gzip\r\n");
        check();
        expectFailureIsLoggedAndStateKept();
    }
}

TEST_F(UpdateTransport, ABodyThatBreaksOffIsAFailure) {
    learnOfAnUpdate();
    service.answer = [](QSslSocket& client) {
        client.write(QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n") + GOOD_REPLY);
        client.disconnectFromHost();
    };
    check();
    expectFailureIsLoggedAndStateKept();
}

TEST_F(UpdateTransport, ABodyThatBreaksOffIsAFailureWithAnyStatus) {
    learnOfAnUpdate();
    service.answer = [](QSslSocket& client) {
        client.write(QByteArray("HTTP/1.1 500 Oh\r\nContent-Length: 5000\r\n\r\n") + GOOD_REPLY);
        client.disconnectFromHost();
    };
    check();
    expectFailureIsLoggedAndStateKept();
}

TEST_F(UpdateTransport, ABodyInChunksIsPutTogether) {
    service.answer = [](QSslSocket& client) {
        client.write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
        const QByteArray body = GOOD_REPLY;
        for (qsizetype at = 0; at < body.size(); at += 7) {
            const QByteArray chunk = body.mid(at, 7);
            client.write(QByteArray::number(chunk.size(), 16) + "\r\n" + chunk + "\r\n");
        }
        client.write("0\r\n\r\n");
    };
    check();
    EXPECT_EQ(manager->latestVersion(), u"3.0");
}

TEST_F(UpdateTransport, ABodyThatEndsWithTheConnectionIsRead) {
    service.answer = [](QSslSocket& client) {
        client.write(QByteArray("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n") + GOOD_REPLY);
        client.disconnectFromHost();
    };
    check();
    EXPECT_EQ(manager->latestVersion(), u"3.0");
}

TEST_F(UpdateTransport, NoBodyAtAllIsNoJson) {
    service.answer = [](QSslSocket& client) { client.write("HTTP/1.1 204 No Content\r\n\r\n"); };
    check();
    EXPECT_THAT(log.take(), StartsWith("⚠️ Update parse error: "));
}

TEST_F(UpdateTransport, WhatIsNoHttpIsAFailure) {
    learnOfAnUpdate();
    service.answer = [](QSslSocket& client) {
        client.write("Hello, who is there?\r\n\r\n");
        client.disconnectFromHost();
    };
    check();
    expectFailureIsLoggedAndStateKept();
}

TEST_F(UpdateTransport, AConnectionThatIsClosedAtOnceIsAFailure) {
    learnOfAnUpdate();
    service.answer = [](QSslSocket& client) { client.disconnectFromHost(); };
    check();
    expectFailureIsLoggedAndStateKept();
}

TEST_F(UpdateTransport, ARefusedConnectionIsAFailure) {
    learnOfAnUpdate();
    service.lastClient->disconnectFromHost();
    service.server.close();
    check();
    expectFailureIsLoggedAndStateKept();
}

TEST_F(UpdateTransport, ANameThatNobodyHasIsAFailure) {
    manager = managerFor(u"https://zamber.invalid/api"_s);
    check();
    expectFailureIsLoggedAndStateKept();
}

TEST_F(UpdateTransport, ACertificateOfAStrangerIsAFailure) {
    HttpsServer stranger(authorities.server(Authorities::Issuer::Stranger, "IP:127.0.0.1"));
    stranger.answer = HttpsServer::reply(GOOD_REPLY);
    manager = managerFor(stranger.apiBase());
    check();
    expectFailureIsLoggedAndStateKept();
    EXPECT_EQ(stranger.requests.size(), 0) << "not even the version is told";
}

TEST_F(UpdateTransport, ACertificateForAnotherHostIsAFailure) {
    HttpsServer other(authorities.server(Authorities::Issuer::Trusted, "DNS:other.example"));
    other.answer = HttpsServer::reply(GOOD_REPLY);
    manager = managerFor(other.apiBase());
    check();
    expectFailureIsLoggedAndStateKept();
    EXPECT_EQ(other.requests.size(), 0);
}

TEST_F(UpdateTransport, TheTestsAuthorityIsTrustedByTheirAccessManagerAlone) {
    service.answer = HttpsServer::reply(GOOD_REPLY);
    web::QtWebClient others(scheduler);
    manager = UpdateManager::create(scheduler, defaults, bundle, workspace, others, service.apiBase());
    check();
    expectFailureIsLoggedAndStateKept();
    manager.reset();
}

TEST_F(UpdateTransport, GarbageInsteadOfTlsIsAFailure) {
    for (const QByteArray& garbage : {QByteArray("HTTP/1.1 400 Bad Request\r\n\r\n"), QByteArray(5000, '\xAA')}) {
        PlainServer plain(garbage);
        manager = managerFor(plain.apiBase());
        check();
        expectFailureIsLoggedAndStateKept();
    }
}

TEST_F(UpdateTransport, AConnectionThatWasKeptAliveAndClosedIsOpenedAgain) {
    checkWith(GOOD_REPLY);
    ASSERT_TRUE(service.lastClient);
    service.lastClient->disconnectFromHost();
    checkWith(R"({"updateAvailable": true, "latestVersion": "3.1"})");
    EXPECT_EQ(manager->latestVersion(), u"3.1");
    EXPECT_EQ(service.connections, 2);
}

TEST_F(UpdateTransport, AConnectionThatWasKeptAliveAndIsClosedByTheNextRequestIsOpenedAgain) {
    checkWith(GOOD_REPLY);
    service.answer = [this](QSslSocket& client) {
        if (service.connections == 1) {
            client.abort();
        } else {
            HttpsServer::reply(R"({"updateAvailable": true, "latestVersion": "3.1"})")(client);
        }
    };
    check();
    EXPECT_EQ(manager->latestVersion(), u"3.1");
}

TEST_F(UpdateTransport, EveryCheckAsksAgainWithoutAMarkOfTheLastAnswer) {
    for (const char* const headers :
         {"", "Cache-Control: no-store\r\n", "Cache-Control: max-age=3600\r\n",
          "Cache-Control: max-age=3600\r\nETag: \"you\"\r\nLast-Modified: Thu, 01 Jan 1970 00:00:00 GMT\r\n",
          "Expires: Thu, 01 Jan 2099 00:00:00 GMT\r\nETag: \"you\"\r\nSet-Cookie: you=1\r\n"}) {
        service.requests.clear();
        service.answer = HttpsServer::reply(GOOD_REPLY, "200 OK", headers);
        check();
        check();
        ASSERT_EQ(service.requests.size(), 2) << headers;
        EXPECT_FALSE(service.requests[1].contains("\r\nIf-")) << headers;
        EXPECT_FALSE(service.requests[1].contains("you")) << headers;
    }
}

TEST_F(UpdateTransport, NothingIsWrittenWhenTheManagerHasGoneBeforeTheReply) {
    service.answer = [](QSslSocket&) {};
    startAndWaitForRequest();
    manager.reset();
    HttpsServer::reply(GOOD_REPLY)(*service.lastClient);
    letPass(200ms);
    scheduler.advance(100s);
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(scheduler.pendingTimers(), 0U);
}

} // namespace zamber::update
