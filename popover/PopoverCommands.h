// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

class QKeyEvent;

namespace zamber::popover {

/// What can be done in the popover by a key that is neither an arrow nor Return, Escape or part of a text.
enum class PopoverCommand { ShowMenu, Pin, Delete, OpenLink, Clear, Update, SkipUpdate, OpenSettings };

/// The command of a key press; each has its keys with Control and the same ones with ⌘.
std::optional<PopoverCommand> commandOf(const QKeyEvent& press);

/// The command's keys as people read them on this desktop.
QString keysText(PopoverCommand command);

/// What a tool tip says: what happens, and by which keys.
QString withKeys(const QString& text, PopoverCommand command);

} // namespace zamber::popover
