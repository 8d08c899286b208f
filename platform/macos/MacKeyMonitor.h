// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyMonitor.h"
#include "platform/macos/KeyHandlers.h"

namespace zamber::macos {

/// A local event monitor, there while somebody has a handler. While one of our own menus is open the keys are its own.
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
    void* m_monitor = nullptr; ///< what the system gave for it, retained
};

} // namespace zamber::macos
