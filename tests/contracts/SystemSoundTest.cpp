// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/CanberraSound.h"
#include "tests/contracts/SystemSoundContract.h"
#include "tests/fakes/FakeSystemSound.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <future>

namespace zamber {

namespace {

struct FakeSystemSoundRig {
    Journal journal;
    FakeSystemSound fake{journal};

    SystemSound& sounds() { return fake; }
};

struct CanberraSoundRig {
    freedesktop::CanberraSound adapter;

    SystemSound& sounds() { return adapter; }
};

/// A sound server that lets programs connect and answers none of them.
class SilentServer final {
public:
    SilentServer()
        : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        const QByteArray path = QFile::encodeName(m_folder.filePath(QStringLiteral("pulse")));
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
        EXPECT_EQ(bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(m_socket, 8), 0);
        qputenv("PULSE_SERVER", "unix:" + path);
    }
    /// Ends every connection, and with it the wait for an answer.
    ~SilentServer() {
        close(m_socket);
        qunsetenv("PULSE_SERVER");
    }
    /// Whether a program has connected; waits for one, with a bound.
    bool isAsked() const {
        pollfd connection{.fd = m_socket, .events = POLLIN, .revents = 0};
        return poll(&connection, 1, LONGEST_MILLISECONDS) == 1;
    }

    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

private:
    static constexpr int LONGEST_MILLISECONDS = 20'000;

    QTemporaryDir m_folder;
    int m_socket;
};

TEST(CanberraSound, AServerThatNeverAnswersKeepsNobodyWaiting) {
    const SilentServer server;
    freedesktop::CanberraSound adapter;
    const auto played = std::async(std::launch::async, [&adapter] { adapter.play(QStringLiteral("Tink")); });
    // A call that waits for the server waits for ever; the bound only turns that into a failure.
    EXPECT_EQ(played.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    EXPECT_TRUE(server.isAsked());
}

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SystemSoundContract, FakeSystemSoundRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Canberra, SystemSoundContract, CanberraSoundRig);

} // namespace zamber
