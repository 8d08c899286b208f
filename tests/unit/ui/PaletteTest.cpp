// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/Palette.h"

#include <QPalette>

#include <gtest/gtest.h>

namespace zamber::ui {

namespace {

const QColor ACCENT(0x1F, 0x78, 0xF0);

/// What the web's accessibility guidelines ask of small texts, and of symbols.
constexpr double READABLE = 4.5;
constexpr double VISIBLE = 3.0;

class PaletteTest : public testing::TestWithParam<Palette> {};

} // namespace

TEST(ContrastRatio, BlackOnWhiteIsTheMostAndAColourOnItselfTheLeast) {
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::red, Qt::red), 1, 0.01);
    EXPECT_NEAR(contrastRatio(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST(Composed, ATranslucentColourMixesWithItsGround) {
    EXPECT_EQ(composed(QColor(255, 0, 0, 0), Qt::blue), QColor(Qt::blue));
    EXPECT_EQ(composed(QColor(255, 0, 0, 255), Qt::blue), QColor(Qt::red));
    EXPECT_EQ(composed(QColor(0, 0, 0, 51), Qt::white).red(), 204);
}

TEST_P(PaletteTest, EveryLevelOfTextIsReadableOnEveryGround) {
    const Palette palette = GetParam();
    const QColor row = composed(faded(palette.primary, 0.04), palette.ultraThinMaterial);
    const QColor field = composed(palette.quinaryFill, palette.ultraThinMaterial);
    const QColor selected = composed(faded(palette.accent, 0.1), palette.ultraThinMaterial);
    const QColor banner = composed(faded(palette.blue, 0.08), palette.ultraThinMaterial);
    for (const QColor& ground : {palette.ultraThinMaterial, palette.barMaterial, row, selected, field, banner}) {
        for (const QColor& text : {palette.primary, palette.secondary, palette.tertiary, palette.quaternary}) {
            EXPECT_GE(contrastRatio(text, ground), READABLE) << text.alphaF() << " on " << ground.name().toStdString();
        }
    }
}

TEST_P(PaletteTest, TheLevelsStandInOrder) {
    const Palette palette = GetParam();
    const auto strength = [&](const QColor& color) { return contrastRatio(color, palette.ultraThinMaterial); };
    EXPECT_GT(strength(palette.primary), strength(palette.secondary));
    EXPECT_GT(strength(palette.secondary), strength(palette.tertiary));
    EXPECT_GT(strength(palette.tertiary), strength(palette.quaternary));
    EXPECT_GT(strength(palette.quaternary), strength(palette.tertiaryFill));
}

TEST_P(PaletteTest, TheColoursOfSymbolsAreVisible) {
    const Palette palette = GetParam();
    for (const QColor& color :
         {palette.red, palette.blue, palette.orange, palette.purple, palette.green, palette.accent}) {
        EXPECT_GE(contrastRatio(color, palette.ultraThinMaterial), VISIBLE) << color.name().toStdString();
    }
    EXPECT_GE(contrastRatio(palette.blue, palette.ultraThinMaterial), READABLE) << "hosts are written in it";
}

TEST_P(PaletteTest, QtsOwnWidgetsGetTheSameLook) {
    const Palette palette = GetParam();
    const QPalette widgets = palette.forWidgets();
    EXPECT_GE(contrastRatio(widgets.color(QPalette::Text), widgets.color(QPalette::Base)), READABLE);
    EXPECT_GE(contrastRatio(widgets.color(QPalette::WindowText), widgets.color(QPalette::Window)), READABLE);
    EXPECT_GE(contrastRatio(widgets.color(QPalette::HighlightedText), widgets.color(QPalette::Highlight)), VISIBLE);
    EXPECT_EQ(widgets.color(QPalette::Window).lightness() < 128, palette.isDark);
}

INSTANTIATE_TEST_SUITE_P(Looks, PaletteTest, testing::Values(Palette::light(ACCENT), Palette::dark(ACCENT)),
                         [](const auto& look) { return look.param.isDark ? "Dark" : "Light"; });

TEST(Palette, AnAccentThatWouldDrownIsMovedAwayFromTheGround) {
    for (const QColor& extreme : {QColor(Qt::black), QColor(Qt::white), QColor(Qt::yellow), QColor(0, 0, 90)}) {
        const Palette light = Palette::light(extreme);
        const Palette dark = Palette::dark(extreme);
        EXPECT_GE(contrastRatio(light.accent, light.ultraThinMaterial), VISIBLE) << extreme.name().toStdString();
        EXPECT_GE(contrastRatio(dark.accent, dark.ultraThinMaterial), VISIBLE) << extreme.name().toStdString();
    }
    EXPECT_EQ(Palette::light(ACCENT).accent, ACCENT) << "one that stands out stays as it is";
}

} // namespace zamber::ui
