// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopoverHost.h"
#include "ui/Palette.h"

#include <QSize>

namespace zamber {
class Appearance;
class UserDefaults;
} // namespace zamber

namespace zamber::popover {

/// The popover's size in points, by the present preference.
QSize popoverSize(const UserDefaults& defaults);

/// Light, dark, or as the desktop has it, by the present preference.
PopoverAppearance popoverAppearance(const UserDefaults& defaults);

/// The colours for that choice on this desktop.
ui::Palette popoverPalette(PopoverAppearance choice, const Appearance& desktop);

} // namespace zamber::popover
