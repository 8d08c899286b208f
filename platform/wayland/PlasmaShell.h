// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Proxy.h"

#include <QPoint>

#include <map>
#include <memory>

class QObject;
class QWindow;

namespace zamber::wayland {

class QtDisplay;

/// Places windows of this program on KWin, and keeps them out of the task bar, by org_kde_plasma_shell, which any
/// program may use.
class PlasmaShell final {
public:
    /// Null where the compositor does not offer it, or where the windows are not Wayland's. The display outlives this
    /// object.
    static std::unique_ptr<PlasmaShell> create(const QtDisplay& display);

    /// The window, which has been shown, is to be there (points, on the desktop).
    void place(QWindow& window, QPoint topLeft);

    /// To be called when the window has been hidden or has gone: it has another surface when it is shown again.
    void forget(const QObject* window);

private:
    PlasmaShell(const QtDisplay& display, Proxy<org_kde_plasma_shell> shell);

    const QtDisplay& m_display;
    Proxy<org_kde_plasma_shell> m_shell;
    std::map<const QObject*, Proxy<org_kde_plasma_surface>> m_surfaces;
};

} // namespace zamber::wayland
