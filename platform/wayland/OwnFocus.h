// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <optional>

namespace zamber {
class Scheduler;
}

namespace zamber::wayland {

class Toplevels;

/// Tells that the focus has left the windows of this program. Qt tells so as well, but not where the focus had come and
/// gone before Qt looked, as on a busy machine.
class OwnFocus final : public QObject {
    Q_OBJECT

public:
    /// The application's identifier is that of its windows (xdg-shell's app_id). The ports outlive this object.
    OwnFocus(Toplevels& toplevels, QString applicationId, Scheduler& scheduler);

    /// To be called when a window of this program is shown for which the focus is watched: what is on its way about the
    /// focus of another, shown before, is not told any more.
    void startOver() { m_focused.reset(); }

Q_SIGNALS:
    /// A window of this program had the focus, is still open, and has it no longer.
    void lost();

private:
    void follow();
    void report();

    Toplevels& m_toplevels;
    QString m_applicationId;
    Scheduler& m_scheduler;
    std::optional<std::uint64_t> m_focused; ///< the window of this program that has, or had, the focus
};

} // namespace zamber::wayland
