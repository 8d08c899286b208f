// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"
#include "ui/Switch.h"

#include <QObject>

#include <functional>

namespace zamber {
class Appearance;
class Symbols;
} // namespace zamber

namespace zamber::settings {

/// The colours and symbols of the settings window. All its parts are built with them and are coloured anew when the
/// desktop's appearance changes.
class SettingsTheme final : public QObject {
    Q_OBJECT

public:
    /// Both outlive this object.
    SettingsTheme(const Symbols& symbols, const Appearance& appearance);

    const Symbols& symbols() const { return m_symbols; }
    const ui::Palette& palette() const { return m_palette; }
    ui::Motion motion() const;

    /// Calls `color` with the palette, at once and after each change of the appearance, for as long as the context
    /// lives.
    void apply(QObject* context, const std::function<void(const ui::Palette&)>& color) const;

    /// To be called when the appearance has changed.
    void update();

signals:
    void changed();

private:
    const Symbols& m_symbols;
    const Appearance& m_appearance;
    ui::Palette m_palette;
};

} // namespace zamber::settings
