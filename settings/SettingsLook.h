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

namespace zamber::settings {}

namespace zamber::settings {} // namespace zamber::settings

namespace zamber::settings {

/// The colours and symbols of the settings window, which everything in it is built with and follows when the
/// desktop's look changes.
class SettingsLook final : public QObject {
    Q_OBJECT

public:
    /// Both outlive this object.
    SettingsLook(const Symbols& symbols, const Appearance& appearance);

    const Symbols& symbols() const { return m_symbols; }
    const ui::Palette& palette() const { return m_palette; }
    ui::Motion motion() const;

    /// Colours something now and whenever the look changes, for as long as the context lives.
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
