// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyMonitor.h"

#include <QObject>

#include <utility>
#include <vector>

class QKeyEvent;

namespace zamber::freedesktop {

/// Watches the key presses that reach this program's windows, by the X server's key codes (Qt's native scan codes).
/// Auto-repeated presses count. While a menu is open the keys are the menu's.
class QtKeyMonitor final : public QObject, public KeyMonitor {
    Q_OBJECT

public:
    /// The application object exists before this one, and outlives it.
    QtKeyMonitor();

    Token addHandler(Handler handler) override;
    void removeHandler(Token token) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    KeyDisposition ask(HardwareKey key);

    std::vector<std::pair<std::uint64_t, Handler>> m_handlers;
    std::uint64_t m_lastId = 0;
};

} // namespace zamber::freedesktop
