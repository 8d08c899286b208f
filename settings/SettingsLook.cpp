// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsLook.h"

#include "platform/Appearance.h"

namespace zamber {

SettingsLook::SettingsLook(const Symbols& symbols, const Appearance& appearance)
    : m_symbols(symbols)
    , m_appearance(appearance) {
    update();
}

Motion SettingsLook::motion() const {
    return m_appearance.reducedMotion() ? Motion::Reduced : Motion::Full;
}

void SettingsLook::apply(QObject* context, const std::function<void(const Palette&)>& color) const {
    color(m_palette);
    connect(this, &SettingsLook::changed, context, [this, color] { color(m_palette); });
}

void SettingsLook::update() {
    m_palette = Palette::of(m_appearance);
    Q_EMIT changed();
}

} // namespace zamber
