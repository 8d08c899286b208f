// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/ModifierKeys.h"

#include "platform/wayland/Connection.h"

#include <kde-keystate.h>

namespace zamber::wayland {

namespace {

/// Earlier ones tell of locks alone.
constexpr std::uint32_t VERSION_WITH_MODIFIERS = 5;

bool isModifier(std::uint32_t key) {
    return key >= ORG_KDE_KWIN_KEYSTATE_KEY_ALT && key <= ORG_KDE_KWIN_KEYSTATE_KEY_ALTGR;
}

} // namespace

std::unique_ptr<ModifierKeys> ModifierKeys::create(Connection& connection) {
    auto* const states =
        connection.bind<org_kde_kwin_keystate>(org_kde_kwin_keystate_interface, VERSION_WITH_MODIFIERS);
    if (states == nullptr) {
        return nullptr;
    }
    std::unique_ptr<ModifierKeys> keys(new ModifierKeys(states));
    if (org_kde_kwin_keystate_get_version(states) < VERSION_WITH_MODIFIERS) {
        return nullptr;
    }
    org_kde_kwin_keystate_fetchStates(states);
    connection.roundTrip();
    return keys;
}

ModifierKeys::ModifierKeys(org_kde_kwin_keystate* states)
    : m_states(states) {
    static constexpr org_kde_kwin_keystate_listener LISTENER{
        .stateChanged = [](void* self, org_kde_kwin_keystate*, std::uint32_t key, std::uint32_t state) {
            static_cast<ModifierKeys*>(self)->handleState(key, state);
        }};
    org_kde_kwin_keystate_add_listener(states, &LISTENER, this);
}

void ModifierKeys::handleState(std::uint32_t key, std::uint32_t state) {
    if (!isModifier(key)) {
        return;
    }
    const bool isHeld = state == ORG_KDE_KWIN_KEYSTATE_STATE_PRESSED;
    const bool isNew = isHeld ? m_held.insert(key).second : m_held.erase(key) > 0;
    if (isNew) {
        Q_EMIT heldKeysChanged();
    }
}

} // namespace zamber::wayland
