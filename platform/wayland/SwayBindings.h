// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <QByteArray>

namespace zamber::wayland {

/// The combination in the words of sway's configuration, by key code: Mod4+Shift+55.
QByteArray swayCombination(PhysicalKey key, HotKeyModifiers modifiers);

/// Whether a configuration of sway's binds that combination itself, to whatever: by the key's code or by a symbol that
/// the ANSI layout has there, with the variables that the configuration sets. What it includes is not looked into.
bool isBoundIn(const QByteArray& configuration, PhysicalKey key, HotKeyModifiers modifiers);

} // namespace zamber::wayland
