// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <QList>

struct xkb_keymap;

namespace zamber::wayland {

/// What KWin takes for a press of that key with these modifiers, in each layout of the keymap, as Qt numbers
/// combinations: by the character that the key gives, and without Shift where the character is no letter and Shift was
/// needed for it (Meta+@ for Shift and 2 on the US layout). Without a keymap as on the US layout.
QList<int> plasmaCombinations(xkb_keymap* keymap, PhysicalKey key, HotKeyModifiers modifiers);

} // namespace zamber::wayland
