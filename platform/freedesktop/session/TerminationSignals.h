// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <optional>

namespace zamber::freedesktop::session {

/// Makes SIGTERM, SIGINT and SIGHUP, by which a session ends its programs, the same as the menu's way to quit: the main
/// loop ends and the program with status 0. A second signal kills the process, should it hang.
class TerminationSignals final {
public:
    /// From here on the first signal is only remembered. Comes before everything that takes time at the start. Signals
    /// that are ignored stay ignored, as nohup wants it.
    static void remember();

    /// Ends the main loop when a signal has come, also one that has come before. To be made on the main thread after
    /// the application object.
    TerminationSignals();

private:
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace zamber::freedesktop::session
