// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWindow;

namespace zamber::wayland {

/// Knows whether a window has appeared since it was shown. QWindow::isExposed() does not: compositors ask for no frames
/// of a window that is covered, which Qt then takes for one that is not exposed.
class AppearanceWatch final : public QObject {
    Q_OBJECT

public:
    /// The window's own watch, which lives as long as the window. Before the first call nothing has watched: the window
    /// has appeared if it is exposed then.
    static AppearanceWatch& of(QWindow& window);

    bool hasAppeared() const { return m_hasAppeared; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit AppearanceWatch(QWindow& window);

    QWindow& m_window;
    bool m_hasAppeared;
};

} // namespace zamber::wayland
