// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Descriptor.h"

#include <QByteArray>
#include <QObject>
#include <QRect>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class QSocketNotifier;

namespace zamber::wayland {

/// sway's control socket, which speaks i3's protocol (sway-ipc(7)). A call that waits for an answer waits for the
/// compositor alone, and not for long.
class SwayConnection final : public QObject {
    Q_OBJECT

public:
    ~SwayConnection() override;

    /// Null where $SWAYSOCK names no sway that answers.
    static std::unique_ptr<SwayConnection> open();

    /// Runs a command as in sway's configuration. False when it is refused or sway does not answer.
    bool run(const QByteArray& command);

    /// The configuration that is in force, without the files that it includes; empty when sway does not answer.
    QByteArray configuration();

    /// A workspace that is on a screen.
    struct Workspace {
        QString output;  ///< the screen's name
        QRect rectangle; ///< what panels leave free of it, in points on the desktop
        bool isFocused = false;
    };

    /// One for each screen; empty when sway does not answer.
    std::vector<Workspace> visibleWorkspaces();

    /// Whether the window that has the focus fills its screen, or all screens. False when sway does not answer.
    bool isFullScreenFocused();

Q_SIGNALS:
    /// The keys of a binding with this command have been pressed.
    void bindingPressed(const QByteArray& command);

    /// sway has read its configuration anew, and with that dropped all bindings that were made by commands.
    void reloaded();

private:
    enum class Kind : std::uint32_t;
    struct Message {
        std::uint32_t kind = 0;
        QByteArray payload;
    };

    explicit SwayConnection(Descriptor socket);
    bool send(QByteArrayView bytes) const;
    std::optional<QByteArray> ask(Kind kind, const QByteArray& payload);
    void readMore();
    std::optional<Message> takeMessage();
    void handleEvent(const Message& event);

    Descriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_unread;
    std::optional<QByteArray> m_answer; // to the last request
};

} // namespace zamber::wayland
