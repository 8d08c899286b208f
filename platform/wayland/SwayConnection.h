// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLocalSocket>
#include <QObject>

#include <cstdint>
#include <memory>
#include <optional>

namespace zamber::wayland {

/// sway's control socket, which speaks i3's protocol (sway-ipc(7)). Waiting for an answer here is waiting for the
/// compositor alone, and not for long.
class SwayConnection final : public QObject {
    Q_OBJECT

public:
    /// Null where $SWAYSOCK names no sway that answers.
    static std::unique_ptr<SwayConnection> open();

    /// Runs a command as in sway's configuration. False when it is refused or sway does not answer.
    bool run(const QByteArray& command);

    /// The configuration that is in force, without what it includes; empty when sway does not tell.
    QByteArray configuration();

Q_SIGNALS:
    /// A binding has been pressed that runs this command.
    void bindingPressed(const QByteArray& command);

    /// The configuration has been read anew. Bindings that were made by commands are gone.
    void reloaded();

private:
    enum class Kind : std::uint32_t;
    struct Message {
        std::uint32_t kind = 0;
        QByteArray payload;
    };

    explicit SwayConnection(const QString& path);
    std::optional<QByteArray> ask(Kind kind, const QByteArray& payload);
    void readMore();
    std::optional<Message> takeMessage();
    void handleEvent(const Message& event);

    QLocalSocket m_socket;
    QByteArray m_unread;
    std::optional<QByteArray> m_answer; // to the question that was asked last
};

} // namespace zamber::wayland
