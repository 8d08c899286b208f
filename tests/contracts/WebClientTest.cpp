// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtScheduler.h"
#include "platform/freedesktop/web/ProcessWebClient.h"
#include "platform/web/QtWebClient.h"
#include "tests/contracts/WebClientContract.h"
#include "tests/fakes/FakeWebClient.h"

#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>

#include <csignal>

namespace zamber {

namespace {

struct FakeWebClientRig {
    FakeWebClient fake;

    WebClient& client() { return fake; }
    QUrl addressOf(const QByteArray& body) {
        fake.answer = body;
        return QUrl(QStringLiteral("https://zamber.example/"));
    }
    QUrl deadAddress() {
        fake.answer = std::unexpected(QStringLiteral("Nobody is there."));
        return QUrl(QStringLiteral("https://zamber.example/"));
    }
    QUrl silentAddress() {
        fake.answer.reset();
        return QUrl(QStringLiteral("https://zamber.example/"));
    }
};

/// A service on the loopback interface that has one body, or is silent.
class Service {
public:
    Service() {
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* const client = m_server.nextPendingConnection();
            QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] {
                if (client->readAll().contains("\r\n\r\n") && body) { // a request is too short to come in pieces
                    client->write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body->size()) +
                                  "\r\n\r\n" + *body);
                }
            });
        });
    }

    QUrl address() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_server.serverPort())); }
    void close() { m_server.close(); }

    std::optional<QByteArray> body;

private:
    QTcpServer m_server;
};

template <class Client>
struct RealRig {
    freedesktop::QtScheduler scheduler;
    Client real = make(scheduler);
    Service service;

    static Client make(Scheduler& scheduler);

    WebClient& client() { return real; }
    QUrl addressOf(const QByteArray& body) {
        service.body = body;
        return service.address();
    }
    QUrl deadAddress() {
        const QUrl address = service.address();
        service.close();
        return address;
    }
    QUrl silentAddress() {
        service.body.reset();
        return service.address();
    }
};

template <>
web::QtWebClient RealRig<web::QtWebClient>::make(Scheduler& scheduler) {
    return web::QtWebClient(scheduler);
}

template <>
freedesktop::web::ProcessWebClient RealRig<freedesktop::web::ProcessWebClient>::make(Scheduler& scheduler) {
    return {scheduler, QStringLiteral(ZAMBER_FETCH)};
}

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, WebClientContract, FakeWebClientRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, WebClientContract, RealRig<web::QtWebClient>);
INSTANTIATE_TYPED_TEST_SUITE_P(Process, WebClientContract, RealRig<freedesktop::web::ProcessWebClient>);

TEST(FetchProgram, EndsWithItsInput) {
    const Service silent;
    QProcess fetch;
    fetch.start(QStringLiteral(ZAMBER_FETCH), {silent.address().toString()});
    letPass(std::chrono::milliseconds(300));
    ASSERT_EQ(fetch.state(), QProcess::Running) << "it waits for an answer";
    fetch.closeWriteChannel();
    ASSERT_TRUE(waitUntil([&fetch] { return fetch.state() == QProcess::NotRunning; }));
    EXPECT_EQ(fetch.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(fetch.exitCode(), EXIT_FAILURE);
    EXPECT_EQ(fetch.readAllStandardOutput(), "");
}

TEST(FetchProgram, HasNoOtherUse) {
    for (const QStringList& arguments : {QStringList{}, QStringList{QStringLiteral("x"), QStringLiteral("y")}}) {
        QProcess fetch;
        fetch.start(QStringLiteral(ZAMBER_FETCH), arguments);
        ASSERT_TRUE(waitUntil([&fetch] { return fetch.state() == QProcess::NotRunning; }));
        EXPECT_EQ(fetch.exitCode(), 2);
        EXPECT_EQ(fetch.readAllStandardOutput(), "");
        EXPECT_FALSE(fetch.readAllStandardError().isEmpty());
    }
}

} // namespace zamber
