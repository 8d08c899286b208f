// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "SwayStandIn.h"

#include <QLocalServer>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace zamber::wayland {

namespace {

// sway-ipc(7)
constexpr qsizetype HEADER_BYTES = 14;
constexpr qsizetype LENGTH_PLACE = 6;
constexpr qsizetype KIND_PLACE = 10;
constexpr std::uint32_t RUN_COMMAND = 0;
constexpr std::uint32_t GET_TREE = 4;

constexpr int TURN_MILLISECONDS = 20; // after which it looks whether it is over

std::uint32_t numberAt(const QByteArray& bytes, qsizetype place) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.constData() + place, sizeof number);
    return number;
}

void putNumber(QByteArray& bytes, qsizetype place, std::uint32_t number) {
    std::memcpy(bytes.data() + place, &number, sizeof number);
}

} // namespace

SwayStandIn::SwayStandIn(QByteArray tree)
    : m_tree(std::move(tree))
    , m_thread(QThread::create([this] { serve(); })) {
    m_thread->start();
    m_isListening.wait(false);
    qputenv("SWAYSOCK", m_path.toLocal8Bit());
}

SwayStandIn::~SwayStandIn() {
    m_isOver = true;
    m_thread->wait();
    qunsetenv("SWAYSOCK");
}

std::vector<QByteArray> SwayStandIn::takeCommands() {
    const std::scoped_lock lock(m_mutex);
    return std::exchange(m_commands, {});
}

void SwayStandIn::serve() {
    QLocalServer server;
    server.listen(m_path);
    m_isListening = true;
    m_isListening.notify_one();
    while (!m_isOver && !server.waitForNewConnection(TURN_MILLISECONDS)) {
    }
    const std::unique_ptr<QLocalSocket> client(server.nextPendingConnection());
    while (!m_isOver && client != nullptr) {
        client->waitForReadyRead(TURN_MILLISECONDS);
        answer(*client);
    }
}

void SwayStandIn::answer(QLocalSocket& client) {
    QByteArray message = client.peek(HEADER_BYTES);
    if (message.size() < HEADER_BYTES || client.bytesAvailable() < HEADER_BYTES + numberAt(message, LENGTH_PLACE)) {
        return; // the rest is on its way
    }
    const std::uint32_t kind = numberAt(message, KIND_PLACE);
    const QByteArray payload = client.read(HEADER_BYTES + numberAt(message, LENGTH_PLACE)).mid(HEADER_BYTES);
    QByteArray reply = R"({"success":true})";
    if (kind == RUN_COMMAND) {
        const std::scoped_lock lock(m_mutex);
        m_commands.push_back(payload);
        reply = m_refusals > 0 ? R"([{"success":false}])" : R"([{"success":true}])";
        m_refusals = std::max(m_refusals - 1, 0);
    } else if (kind == GET_TREE) {
        reply = m_tree;
    }
    putNumber(message, LENGTH_PLACE, static_cast<std::uint32_t>(reply.size()));
    client.write(message + reply);
    client.flush();
}

} // namespace zamber::wayland
