// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QPointer>
#include <QSslServer>
#include <QSslSocket>
#include <QTcpServer>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace zamber::update {

/// Certificates made on the spot: one authority that the tests trust, and one that they do not.
class Authorities {
public:
    Authorities();

    enum class Issuer { Trusted, Stranger };

    /// What a server shows that says it is that name.
    QSslConfiguration server(Issuer issuer, const char* subjectAltName) const;
    QSslCertificate trusted() const;

private:
    void run(const QStringList& arguments) const;
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

/// An HTTPS service on the loopback interface that answers as a test says.
class HttpsServer {
public:
    using Answer = std::function<void(QSslSocket& client)>;

    explicit HttpsServer(const QSslConfiguration& configuration);

    QString apiBase() const { return QStringLiteral("https://127.0.0.1:%1/api").arg(server.serverPort()); }

    /// From a status line's "200 OK" and a body: a whole reply.
    static Answer reply(const QByteArray& body, const QByteArray& status = "200 OK", const QByteArray& headers = {});

    QSslServer server;
    Answer answer;
    /// The heads that came.
    QList<QByteArray> requests;
    int connections = 0;
    QPointer<QSslSocket> lastClient;
};

/// Answers everything on its port with those bytes, and is no TLS server at all.
class PlainServer {
public:
    explicit PlainServer(QByteArray bytes);

    QString apiBase() const { return QStringLiteral("https://127.0.0.1:%1/api").arg(server.serverPort()); }

    QTcpServer server;
    int connections = 0;
};

} // namespace zamber::update
