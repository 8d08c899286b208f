// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/PasteKeyboard.h"
#include "platform/wayland/Proxy.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace zamber::wayland {

class Connection;
class HeldKeys;
class ModifierKeys;
class SeatKeyboard;

/// Presses keys of the user's own keyboard, by org_kde_kwin_fake_input, which KWin offers to programs whose desktop
/// entry asks for it. They mean what the user's layout says, and count together with the modifiers that the user holds.
///
/// Where KWin tells which modifiers are held, they are waited for. Where it does not, the hot keys are waited for, and
/// the modifiers are lifted before the keystroke, and not pressed again.
class FakeKeyboard final : public PasteKeyboard {
public:
    /// Which of the user's layouts is in use, counted from 0.
    using ActiveLayout = std::function<std::uint32_t()>;

    /// Null where the compositor does not let this program type. The hot keys may be null.
    static std::unique_ptr<FakeKeyboard> create(Connection& connection, SeatKeyboard& keyboard,
                                                ActiveLayout activeLayout, HeldKeys* hotKeys);
    ~FakeKeyboard() override;

    /// Whether `create` would not return null.
    static bool isOffered(const Connection& connection);

    bool isReady() const override;
    bool isBlocked() const override;
    PasteKeystroke possibleFor(PasteKeystroke wanted) const override;
    bool type(PasteKeystroke keystroke) override;

private:
    FakeKeyboard(Connection& connection, org_kde_kwin_fake_input* input, SeatKeyboard& keyboard,
                 ActiveLayout activeLayout, HeldKeys* hotKeys);
    std::uint32_t keyOr(std::uint32_t symbol, std::uint32_t usual) const;
    std::vector<std::uint32_t> keysOf(PasteKeystroke keystroke) const;
    void liftModifiers();
    void send(std::uint32_t key, std::uint32_t state);

    Connection& m_connection;
    Proxy<org_kde_kwin_fake_input> m_input;
    SeatKeyboard& m_keyboard;
    ActiveLayout m_activeLayout;
    std::unique_ptr<ModifierKeys> m_modifiers; // null where KWin does not tell
    HeldKeys* m_waitedFor;                     // the modifiers, else the hot keys
};

} // namespace zamber::wayland
