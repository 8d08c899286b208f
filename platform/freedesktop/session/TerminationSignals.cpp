// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/TerminationSignals.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace zamber::freedesktop::session {

namespace {

constexpr std::array SIGNALS{SIGTERM, SIGINT, SIGHUP};

/// A pipe's reading and writing ends: a signal handler may do hardly more than write.
std::array<int, 2> ends{-1, -1};

void noteSignal(int) {
    const int before = errno;
    constexpr char BYTE = 0;
    [[maybe_unused]] const ssize_t written = write(ends[1], &BYTE, 1);
    errno = before;
}

} // namespace

void TerminationSignals::remember() {
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals end the program as they always do
    }
    for (const int signal : SIGNALS) {
        struct sigaction current{};
        if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler != SIG_IGN) {
            struct sigaction action{};
            action.sa_handler = noteSignal;
            action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
            sigaction(signal, &action, nullptr);
        }
    }
}

TerminationSignals::TerminationSignals() {
    if (ends[0] < 0) {
        return;
    }
    m_notifier.emplace(ends[0], QSocketNotifier::Read);
    // The byte stays in the pipe: a loop that begins after this one, as a question's may, is ended as well.
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [] { QCoreApplication::quit(); });
}

} // namespace zamber::freedesktop::session
