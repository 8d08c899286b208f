// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLocalSocket>
#include <QString>
#include <QTemporaryDir>
#include <QThread>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace zamber::wayland {

/// Answers as sway does on its control socket, and keeps the commands. $SWAYSOCK leads to it while it lives. It answers
/// on a thread of its own, since the program waits for the answers in place.
class SwayStandIn {
public:
    /// The tree is what sway would describe; JSON.
    explicit SwayStandIn(QByteArray tree);
    ~SwayStandIn();
    SwayStandIn(const SwayStandIn&) = delete;
    SwayStandIn& operator=(const SwayStandIn&) = delete;

    /// What it was told to do since it was last asked for.
    std::vector<QByteArray> takeCommands();

    /// The next commands fail, as those about a window do that is not there yet.
    void refuseCommands(int count) { m_refusals = count; }

private:
    void serve();
    void answer(QLocalSocket& client);

    QByteArray m_tree;
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("sway.sock"));
    std::mutex m_mutex;
    std::vector<QByteArray> m_commands;
    std::atomic<bool> m_isListening = false;
    std::atomic<int> m_refusals = 0;
    std::atomic<bool> m_isOver = false;
    std::unique_ptr<QThread> m_thread;
};

} // namespace zamber::wayland
