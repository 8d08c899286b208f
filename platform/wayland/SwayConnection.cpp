// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayConnection.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>
#include <QTimer>

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace zamber::wayland {

enum class SwayConnection::Kind : std::uint32_t {
    RunCommand = 0,
    GetWorkspaces = 1,
    Subscribe = 2,
    GetTree = 4,
    GetConfiguration = 9
};

namespace {

constexpr QByteArrayView MAGIC = "i3-ipc";
constexpr qsizetype HEADER_BYTES = 14; // the magic, the length of what follows, and its kind
constexpr std::uint32_t EVENT_BIT = 0x8000'0000;
constexpr std::uint32_t WORKSPACE_EVENT = EVENT_BIT;
constexpr std::uint32_t BINDING_EVENT = EVENT_BIT | 5;
constexpr int LONGEST_MILLISECONDS = 1000;
constexpr std::size_t CHUNK_BYTES = 8'192;

std::uint32_t numberAt(const QByteArray& bytes, qsizetype place) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.constData() + place, sizeof number); // in this machine's byte order
    return number;
}

QByteArray bytesOf(std::uint32_t number) {
    QByteArray bytes(sizeof number, Qt::Uninitialized);
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

/// No open descriptor where nobody listens there. Qt's local sockets would be of its network library, which takes more
/// memory than the few lines here.
Descriptor connectTo(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= static_cast<qsizetype>(sizeof address.sun_path)) {
        return {};
    }
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    Descriptor connected(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    // The bound of connecting and of sending.
    timeval longest{};
    longest.tv_sec = LONGEST_MILLISECONDS / 1000;
    setsockopt(connected.number(), SOL_SOCKET, SO_SNDTIMEO, &longest, sizeof longest);
    if (connect(connected.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        return {};
    }
    return connected;
}

/// Whether something has come, or the other side has gone, before the deadline.
bool waitForInput(const Descriptor& socket, const QDeadlineTimer& deadline) {
    pollfd watched{.fd = socket.number(), .events = POLLIN, .revents = 0};
    int ready = 0;
    do {
        ready = poll(&watched, 1, static_cast<int>(deadline.remainingTime()));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

/// Whether the part of sway's tree with the focus is this one or below it, and fills the screen by itself or as a part
/// of a container that does. A workspace, which always fills its screen, does not count.
bool hasFullScreenFocus(const QJsonObject& node, bool isInFullScreen = false) {
    const bool isWindow = node[QStringLiteral("type")].toString().endsWith(QStringLiteral("con"));
    const bool fills = isInFullScreen || (isWindow && node[QStringLiteral("fullscreen_mode")].toInt() > 0);
    if (node[QStringLiteral("focused")].toBool()) {
        return fills;
    }
    const auto isOrHas = [fills](const QJsonValue& child) { return hasFullScreenFocus(child.toObject(), fills); };
    return std::ranges::any_of(node[QStringLiteral("nodes")].toArray(), isOrHas) ||
           std::ranges::any_of(node[QStringLiteral("floating_nodes")].toArray(), isOrHas);
}

} // namespace

std::unique_ptr<SwayConnection> SwayConnection::open() {
    const QString path = qEnvironmentVariable("SWAYSOCK");
    if (path.isEmpty()) {
        return nullptr;
    }
    Descriptor connected = connectTo(path);
    if (!connected.isOpen()) {
        return nullptr;
    }
    std::unique_ptr<SwayConnection> connection(new SwayConnection(std::move(connected)));
    const auto answer = connection->ask(Kind::Subscribe, R"(["binding","workspace"])");
    return answer && QJsonDocument::fromJson(*answer)[QStringLiteral("success")].toBool() ? std::move(connection)
                                                                                          : nullptr;
}

SwayConnection::SwayConnection(Descriptor socket)
    : m_socket(std::move(socket))
    , m_notifier(std::make_unique<QSocketNotifier>(m_socket.number(), QSocketNotifier::Read)) {
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SwayConnection::readMore);
}

SwayConnection::~SwayConnection() = default;

bool SwayConnection::run(const QByteArray& command) {
    const auto answer = ask(Kind::RunCommand, command);
    const QJsonArray results = answer ? QJsonDocument::fromJson(*answer).array() : QJsonArray();
    return !results.isEmpty() && std::ranges::all_of(results, [](const QJsonValue& result) {
        return result[QStringLiteral("success")].toBool();
    });
}

QByteArray SwayConnection::configuration() {
    const auto answer = ask(Kind::GetConfiguration, {});
    return answer ? QJsonDocument::fromJson(*answer)[QStringLiteral("config")].toString().toUtf8() : QByteArray();
}

std::vector<SwayConnection::Workspace> SwayConnection::visibleWorkspaces() {
    std::vector<Workspace> visible;
    const auto answer = ask(Kind::GetWorkspaces, {});
    const QJsonArray workspaces = answer ? QJsonDocument::fromJson(*answer).array() : QJsonArray();
    for (const auto& workspace : workspaces) {
        if (workspace[QStringLiteral("visible")].toBool()) {
            const QJsonValue place = workspace[QStringLiteral("rect")];
            visible.push_back(
                {.output = workspace[QStringLiteral("output")].toString(),
                 .rectangle = {place[QStringLiteral("x")].toInt(), place[QStringLiteral("y")].toInt(),
                               place[QStringLiteral("width")].toInt(), place[QStringLiteral("height")].toInt()},
                 .isFocused = workspace[QStringLiteral("focused")].toBool()});
        }
    }
    return visible;
}

bool SwayConnection::isFullScreenFocused() {
    const auto answer = ask(Kind::GetTree, {});
    return answer && hasFullScreenFocus(QJsonDocument::fromJson(*answer).object());
}

std::optional<QByteArray> SwayConnection::ask(Kind kind, const QByteArray& payload) {
    m_answer.reset();
    if (!send(MAGIC.toByteArray() + bytesOf(static_cast<std::uint32_t>(payload.size())) +
              bytesOf(static_cast<std::uint32_t>(kind)) + payload)) {
        return std::nullopt;
    }
    const QDeadlineTimer deadline(LONGEST_MILLISECONDS);
    while (!m_answer && m_notifier->isEnabled() && waitForInput(m_socket, deadline)) {
        readMore();
    }
    return std::exchange(m_answer, std::nullopt);
}

bool SwayConnection::send(QByteArrayView bytes) const {
    while (!bytes.isEmpty()) {
        const ssize_t sent =
            ::send(m_socket.number(), bytes.data(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
        if (sent > 0) {
            bytes = bytes.sliced(sent);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

void SwayConnection::readMore() {
    std::array<char, CHUNK_BYTES> chunk{};
    ssize_t count = 0;
    do {
        count = recv(m_socket.number(), chunk.data(), chunk.size(), MSG_DONTWAIT);
        m_unread.append(chunk.data(), std::max<ssize_t>(count, 0));
    } while (count > 0);
    if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
        m_notifier->setEnabled(false); // sway has gone
    }
    while (const auto message = takeMessage()) {
        if ((message->kind & EVENT_BIT) == 0) {
            m_answer = message->payload;
        } else {
            // In the next turn of the loop, since this may be in the middle of waiting for an answer.
            QTimer::singleShot(0, this, [this, event = *message] { handleEvent(event); });
        }
    }
}

std::optional<SwayConnection::Message> SwayConnection::takeMessage() {
    if (m_unread.size() < HEADER_BYTES) {
        return std::nullopt;
    }
    const auto length = static_cast<qsizetype>(numberAt(m_unread, MAGIC.size()));
    if (m_unread.size() < HEADER_BYTES + length) {
        return std::nullopt;
    }
    Message message{.kind = numberAt(m_unread, MAGIC.size() + 4), .payload = m_unread.mid(HEADER_BYTES, length)};
    m_unread.remove(0, HEADER_BYTES + length);
    return message;
}

void SwayConnection::handleEvent(const Message& event) {
    const QJsonDocument told = QJsonDocument::fromJson(event.payload);
    if (event.kind == BINDING_EVENT) {
        const QJsonValue command = told[QStringLiteral("binding")][QStringLiteral("command")];
        Q_EMIT bindingPressed(command.toString().toUtf8());
    } else if (event.kind == WORKSPACE_EVENT && told[QStringLiteral("change")].toString() == QStringLiteral("reload")) {
        Q_EMIT reloaded();
    }
}

} // namespace zamber::wayland
