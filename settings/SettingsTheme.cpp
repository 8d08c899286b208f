// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsTheme.h"

#include "platform/Appearance.h"

namespace zamber::settings {

SettingsTheme::SettingsTheme(const Symbols& symbols, const Appearance& appearance)
    : m_symbols(symbols)
    , m_appearance(appearance) {
    update();
}

ui::Motion SettingsTheme::motion() const {
    return m_appearance.reducedMotion() ? ui::Motion::Reduced : ui::Motion::Full;
}

void SettingsTheme::apply(QObject* context, const std::function<void(const ui::Palette&)>& color) const {
    color(m_palette);
    connect(this, &SettingsTheme::changed, context, [this, color] { color(m_palette); });
}

void SettingsTheme::update() {
    m_palette = ui::Palette::of(m_appearance);
    Q_EMIT changed();
}

} // namespace zamber::settings
