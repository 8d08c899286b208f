// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WebClient.h"

#include <QString>

#include <memory>

namespace zamber {
class Scheduler;
}

namespace zamber::freedesktop::web {

/// The web by a process of its own for each request. What a request loads (Qt's network library, TLS and what they
/// need) is several megabytes and cannot be unloaded; it goes with the process.
class ProcessWebClient final : public WebClient {
public:
    /// The program that is started with an address and writes the answer, framed, to its standard output. It ends by
    /// itself when its standard input does.
    ProcessWebClient(Scheduler& scheduler, QString program);

    /// Our own such program: beside this one where both were built, else where it is installed.
    static QString installedProgram();

    std::unique_ptr<Request> get(const QUrl& address, Done done) override;

private:
    Scheduler& m_scheduler;
    const QString m_program;
};

} // namespace zamber::freedesktop::web
