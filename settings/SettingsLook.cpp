// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsLook.h"

#include "platform/Appearance.h"

namespace zamber::settings {

SettingsLook::SettingsLook(const Symbols& symbols, const Appearance& appearance)
    : m_symbols(symbols)
    , m_appearance(appearance) {
    update();
}

ui::Motion SettingsLook::motion() const {
    return m_appearance.reducedMotion() ? ui::Motion::Reduced : ui::Motion::Full;
}

void SettingsLook::apply(QObject* context, const std::function<void(const ui::Palette&)>& color) const {
    color(m_palette);
    connect(this, &SettingsLook::changed, context, [this, color] { color(m_palette); });
}

void SettingsLook::update() {
    m_palette = ui::Palette::of(m_appearance);
    Q_EMIT changed();
}

} // namespace zamber::settings
