// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/PopoverPreferences.h"

#include "preferences/PreferenceKeys.h"

#include "platform/Appearance.h"

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {
constexpr QSize COMPACT_SIZE{360, 340};
constexpr QSize NORMAL_SIZE{440, 420};
constexpr QSize LARGE_SIZE{500, 520};
} // namespace

QSize popoverSize(const UserDefaults& defaults) {
    const QString preset = read(defaults, preferences::popoverSize);
    if (preset == u"compact"_s) {
        return COMPACT_SIZE;
    }
    return preset == u"large"_s ? LARGE_SIZE : NORMAL_SIZE;
}

PopoverAppearance popoverAppearance(const UserDefaults& defaults) {
    const QString theme = read(defaults, preferences::appTheme);
    if (theme == u"light"_s) {
        return PopoverAppearance::Light;
    }
    return theme == u"dark"_s ? PopoverAppearance::Dark : PopoverAppearance::System;
}

ui::Palette popoverPalette(PopoverAppearance choice, const Appearance& desktop) {
    switch (choice) {
    case PopoverAppearance::Light:
        return ui::Palette::light(desktop.accentColor());
    case PopoverAppearance::Dark:
        return ui::Palette::dark(desktop.accentColor());
    case PopoverAppearance::System:
        break;
    }
    return ui::Palette::of(desktop);
}

} // namespace zamber::popover
