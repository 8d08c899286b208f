// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zamber::freedesktop::selection {

/// How a program wants to be told to paste the clipboard.
enum class PasteKeystroke {
    ControlV,
    ControlShiftV, ///< terminals, where Ctrl+V is a character
    ShiftInsert,   ///< old terminals and editors, most of which paste the PRIMARY selection by it
};

/// By the class of the program's window, or by its id on Wayland, in any letter case.
PasteKeystroke pasteKeystrokeOf(const QString& windowClass);

} // namespace zamber::freedesktop::selection
