// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/AboutSettingsView.h"

#include "platform/AppBundle.h"
#include "settings/SettingsTheme.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"

#include <QVBoxLayout>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

constexpr int SPACING = 20;
constexpr int NAME_SPACING = 4;
constexpr int BOTTOM = 20;
constexpr int SYMBOL_POINTS = 56;
constexpr int NAME_POINTS = 24;
constexpr int TEXT_POINTS = 13;
constexpr int CREDIT_POINTS = 12;
constexpr int LICENCE_POINTS = 11;

ui::TextLabel* line(const SettingsTheme& theme, const QString& text, const QFont& font, QColor ui::Palette::* level) {
    auto* label = new ui::TextLabel(text, font);
    label->setAlignment(Qt::AlignHCenter);
    theme.apply(label, [label, level](const ui::Palette& palette) { label->setColor(palette.*level); });
    return label;
}

} // namespace

AboutSettingsView::AboutSettingsView(const SettingsTheme& theme, const AppBundle& bundle) {
    auto* symbol = new ui::SymbolView(theme.symbols(), u"clipboard.fill"_s, SYMBOL_POINTS, QFont::Normal);
    theme.apply(symbol, [symbol](const ui::Palette& palette) { symbol->setColor(palette.accent); });

    auto* name = new QVBoxLayout;
    name->setSpacing(NAME_SPACING);
    name->addWidget(line(theme, u"Zamber"_s, ui::textFont(NAME_POINTS, QFont::Bold), &ui::Palette::primary));
    name->addWidget(line(theme, u"Version %1"_s.arg(bundle.version().value_or(u"1.0.0"_s)), ui::textFont(TEXT_POINTS),
                         &ui::Palette::secondary));

    auto* credit = new QVBoxLayout;
    credit->setSpacing(NAME_SPACING);
    credit->addWidget(
        line(theme, u"Made with care by the Zamber project"_s, ui::textFont(CREDIT_POINTS), &ui::Palette::tertiary));
    credit->addWidget(
        line(theme, u"Free software under the MIT licence"_s, ui::textFont(LICENCE_POINTS), &ui::Palette::quaternary));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, BOTTOM);
    column->setSpacing(SPACING);
    column->addStretch();
    column->addWidget(symbol, 0, Qt::AlignHCenter);
    column->addLayout(name);
    column->addWidget(
        line(theme, u"A minimal clipboard manager for macOS"_s, ui::textFont(TEXT_POINTS), &ui::Palette::tertiary));
    column->addStretch();
    column->addLayout(credit);
}

} // namespace zamber::settings
