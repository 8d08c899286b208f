// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

namespace zamber::macos {

/// Hot keys of the Carbon event manager. They and their handler are never removed, so that this object must live as
/// long as the process.
class MacHotKeyCenter final : public HotKeyCenter {
public:
    QString commandKeyHint() const override;
    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override;

    /// To be called once.
    void setPressedHandler(PressedHandler handler) override;

    /// Called on the main queue for each press that the event manager reports.
    void tellPressed(std::uint32_t id) const { m_pressed(id); }

private:
    PressedHandler m_pressed;
};

} // namespace zamber::macos
