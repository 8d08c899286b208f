// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace zamber {

enum class AlertStyle { Informational, Warning };

/// A question that has to be answered before anything else. The first button is the default one; with none of its own
/// an alert has one that just closes it. The texts are plain.
struct AlertContent {
    AlertStyle style = AlertStyle::Informational;
    QString message = {};
    QString informativeText = {};
    QStringList buttons = {};
};

/// Asks the user.
class Alert {
public:
    virtual ~Alert() = default;

    /// Shows the alert, in front, and comes back when it was answered. The main loop goes on meanwhile, repeating
    /// timers and what is posted from elsewhere with it; on macOS however no other action of the scheduler's runs while
    /// an alert is shown from within one of them. Which button was pressed, counted from 0: the last one when the alert
    /// went away in any other way, since that is the one that does nothing.
    virtual int run(const AlertContent& content) = 0;
};

} // namespace zamber
