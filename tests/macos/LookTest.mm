// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: appearance and symbols.

#include "platform/macos/MacAppearance.h"
#include "platform/macos/MacSymbols.h"
#include "tests/macos/System.h"

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

#include <vector>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;

} // namespace

TEST(Recorded, TheAccentIsThatOfTheAppearance) {
    macos::MacAppearance appearance;
    system::setAccent(0.2, 0.4, 1.0);
    EXPECT_EQ(appearance.accentColor(), QColor::fromRgbF(0.2F, 0.4F, 1.0F));
    int told = 0;
    appearance.addChangedHandler([&told] { ++told; });
    system::setDark(true);
    system::setDark(false);
    EXPECT_EQ(told, 2) << "there and back";
    told = 0;
    system::setDark(true);
    EXPECT_TRUE(appearance.isDark());
    EXPECT_EQ(appearance.accentColor(), QColor::fromRgbF(0.2F, 0.4F, 0.5F));
    EXPECT_EQ(told, 1);
    system::setAccent(1.0, 0.0, 0.0);
    EXPECT_EQ(told, 2);
    system::setReducedMotion(true);
    EXPECT_TRUE(appearance.reducedMotion());
    EXPECT_EQ(told, 3);
    system::setReducedMotion(false);
    system::setDark(false);
    EXPECT_FALSE(appearance.isDark());
    EXPECT_EQ(told, 5);
}

TEST(Recorded, AnAppearanceThatHasGoneIsToldNothing) {
    int told = 0;
    {
        macos::MacAppearance appearance;
        appearance.addChangedHandler([&told] { ++told; });
    }
    system::setDark(true);
    system::setAccent(0.0, 1.0, 0.0);
    system::setReducedMotion(true);
    system::setReducedMotion(false);
    system::setDark(false);
    EXPECT_EQ(told, 0);
}

TEST(Recorded, ASymbolIsDrawnInItsWeight) {
    const macos::MacSymbols symbols;
    const std::vector<std::pair<QFont::Weight, const char*>> rows{
        {QFont::Thin, "-0.8"}, {QFont::Light, "-0.4"},   {QFont::Normal, "0"},   {QFont::Medium, "0.23"},
        {QFont::Bold, "0.4"},  {QFont::DemiBold, "0.3"}, {QFont::Black, "0.62"}, {QFont::ExtraBold, "0.56"}};
    for (const auto& [weight, number] : rows) {
        EXPECT_THAT(callsDuring([&, drawn = weight] {
                        symbols.pixmap(QStringLiteral("pin"), {.pointSize = 12, .weight = drawn, .color = Qt::red});
                    }),
                    ElementsAre(std::string("NSImageSymbolConfiguration pointSize: 12 weight: ") + number,
                                "NSImage imageWithSystemSymbolName: pin accessibilityDescription: nil",
                                "CGBitmapContextCreate bits: 8 info: 0x2002", "NSGraphicsContext flipped: 0"));
    }
}

TEST(Recorded, ASymbolKeepsItsShapeAndHasTheWantedColour) {
    const macos::MacSymbols symbols;
    const QImage drawn = symbols.pixmap(QStringLiteral("pin"), {.pointSize = 12, .color = Qt::red}).toImage();
    EXPECT_EQ(drawn.pixelColor(drawn.rect().center()), QColor(Qt::red));
    EXPECT_EQ(drawn.pixelColor(0, 0).alpha(), 0);
}

} // namespace zamber
