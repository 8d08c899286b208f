// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"

#include <QObject>

#include <memory>
#include <mutex>
#include <unordered_map>

class QTimer;

namespace zamber::freedesktop {

/// Time by Qt's event loop, with precise timers. To be made on the main thread, after the application object.
class QtScheduler final : public Scheduler {
public:
    QtScheduler();
    ~QtScheduler() override;

    Token after(std::chrono::milliseconds delay, Action action) override;
    Token every(std::chrono::milliseconds interval, Action action) override;
    void invalidate(Token token) override;
    void soon(Action action) override;
    double now() const override;

    /// Destroys all actions that have not run yet, and runs none any more. To be called when the main loop has ended,
    /// while everything that the actions hold or use still exists.
    void stop();

private:
    enum class Repeat { Once, Forever };

    Token start(std::chrono::milliseconds interval, Repeat repeat, Action action);

    /// The timers' parent, and where `soon` posts to; nothing after `stop`.
    std::unique_ptr<QObject> m_context;
    std::mutex m_contextMutex; // for `soon`, which other threads may call
    std::unordered_map<std::uint64_t, QTimer*> m_timers;
    std::uint64_t m_lastId = 0;
};

} // namespace zamber::freedesktop
