// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "HttpsServer.h"

#include <QFile>
#include <QProcess>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace zamber::update {

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

} // namespace

Authorities::Authorities() {
    for (const QString& name : {u"trusted"_s, u"stranger"_s}) {
        run({u"-keyout"_s, path(name + u".key"_s), u"-out"_s, path(name + u".pem"_s), u"-subj"_s,
             u"/CN=Authority of the tests: "_s + name, u"-addext"_s, u"basicConstraints=critical,CA:TRUE"_s});
    }
}

void Authorities::run(const QStringList& arguments) const {
    QProcess openssl;
    openssl.start(QStringLiteral(ZAMBER_OPENSSL),
                  QStringList{u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
                              u"ec_paramgen_curve:prime256v1"_s, u"-nodes"_s, u"-days"_s, u"2"_s} +
                      arguments);
    ASSERT_TRUE(openssl.waitForFinished(20'000)) << "openssl does not start or end";
    ASSERT_EQ(openssl.exitCode(), 0) << openssl.readAllStandardError().toStdString();
}

QSslConfiguration Authorities::server(Issuer issuer, const char* subjectAltName) const {
    const QString authority = issuer == Issuer::Trusted ? u"trusted"_s : u"stranger"_s;
    run({u"-keyout"_s, path(u"server.key"_s), u"-out"_s, path(u"server.pem"_s), u"-subj"_s, u"/CN=Service"_s, u"-CA"_s,
         path(authority + u".pem"_s), u"-CAkey"_s, path(authority + u".key"_s), u"-addext"_s,
         u"basicConstraints=critical,CA:FALSE"_s, u"-addext"_s,
         u"subjectAltName="_s + QString::fromLatin1(subjectAltName)});
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(bytesOf(path(u"server.pem"_s))));
    configuration.setPrivateKey(QSslKey(bytesOf(path(u"server.key"_s)), QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}

QSslCertificate Authorities::trusted() const {
    return QSslCertificate(bytesOf(path(u"trusted.pem"_s)));
}

HttpsServer::HttpsServer(const QSslConfiguration& configuration) {
    server.setSslConfiguration(configuration);
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QTcpServer::pendingConnectionAvailable, &server, [this] {
        while (server.hasPendingConnections()) {
            auto* const client = qobject_cast<QSslSocket*>(server.nextPendingConnection());
            ++connections;
            lastClient = client;
            const auto head = std::make_shared<QByteArray>();
            const auto take = [this, client, head] {
                *head += client->readAll();
                if (const qsizetype end = head->indexOf("\r\n\r\n"); end >= 0) {
                    requests.append(head->first(end));
                    head->remove(0, end + 4);
                    answer(*client);
                }
            };
            QObject::connect(client, &QIODevice::readyRead, client, take);
            QObject::connect(client, &QAbstractSocket::disconnected, client, &QObject::deleteLater);
            take();
        }
    });
}

HttpsServer::Answer HttpsServer::reply(const QByteArray& body, const QByteArray& status, const QByteArray& headers) {
    return [=](QSslSocket& client) {
        client.write("HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + QByteArray::number(body.size()) +
                     "\r\n\r\n" + body);
    };
}

PlainServer::PlainServer(QByteArray bytes) {
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QTcpServer::newConnection, &server, [this, bytes] {
        while (QTcpSocket* const client = server.nextPendingConnection()) {
            ++connections;
            client->write(bytes);
        }
    });
}

} // namespace zamber::update
