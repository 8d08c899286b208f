// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zamber::ui {

/// Has screen readers say what has just happened. Takes no room: to the accessibility tree it is a notification that
/// shows up with each sentence, which readers read out; announcements proper came to Qt with 6.8 alone.
class Announcer final : public QWidget {
    Q_OBJECT

public:
    explicit Announcer(QWidget* parent);

    /// Nothing is said while the parent is not on screen.
    void announce(const QString& sentence);

protected:
    void hideEvent(QHideEvent* event) override;
};

} // namespace zamber::ui
