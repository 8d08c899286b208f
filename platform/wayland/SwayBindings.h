// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <QByteArray>

namespace zamber::wayland {

/// The combination in the words of sway's configuration, by key code: Mod4+Shift+55.
QByteArray swayCombination(PhysicalKey key, HotKeyModifiers modifiers);

/// Whether sway's configuration binds the combination to any command, by the key's code or by a symbol that the ANSI
/// layout has on that key. The configuration's variables are replaced; files that it includes are not read.
bool isBoundIn(const QByteArray& configuration, PhysicalKey key, HotKeyModifiers modifiers);

} // namespace zamber::wayland
