// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyMonitor.h"
#include "platform/macos/KeyHandlers.h"

namespace zamber::macos {

/// A local event monitor, installed while there is a handler. While one of our menus is open, the menu gets the keys.
class MacKeyMonitor final : public KeyMonitor {
public:
    MacKeyMonitor() = default;
    ~MacKeyMonitor() override;
    MacKeyMonitor(const MacKeyMonitor&) = delete;
    MacKeyMonitor& operator=(const MacKeyMonitor&) = delete;

    Token addHandler(Handler handler) override;
    void removeHandler(Token token) override;

private:
    KeyHandlers m_handlers;
    void* m_monitor = nullptr; ///< the system's token of the monitor, retained
};

} // namespace zamber::macos
