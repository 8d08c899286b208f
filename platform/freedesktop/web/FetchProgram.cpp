// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtScheduler.h"
#include "platform/freedesktop/web/AnswerFrame.h"
#include "platform/web/QtWebClient.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QUrl>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

using zamber::WebClient;

namespace {

/// Beyond any request's end. Nothing of this process is to be left behind, even where it hangs.
constexpr unsigned LONGEST_LIFE_SECONDS = 90;
constexpr int WRONG_USE = 2;

int tell(const WebClient::Answer& answer) {
    const QByteArray frame = zamber::freedesktop::web::framed(answer);
    const auto size = static_cast<std::size_t>(frame.size());
    const bool isTold = std::fwrite(frame.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
    return isTold && answer ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    alarm(LONGEST_LIFE_SECONDS);
    if (argc != 2) {
        std::fputs("zamber-fetch: started by zamber, with an address\n", stderr);
        return WRONG_USE;
    }
    int onlyItsName = 1;
    const QCoreApplication application(onlyItsName, argv);
    zamber::freedesktop::QtScheduler scheduler;
    zamber::web::QtWebClient client(scheduler);
    // Nothing is ever written to the standard input. It ends with the program that has started this one.
    const QSocketNotifier asker(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&asker, &QSocketNotifier::activated, &application, [] { QCoreApplication::exit(EXIT_FAILURE); });
    const auto request = client.get(QUrl::fromEncoded(argv[1], QUrl::StrictMode),
                                    [](const WebClient::Answer& answer) { QCoreApplication::exit(tell(answer)); });
    return QCoreApplication::exec();
}
