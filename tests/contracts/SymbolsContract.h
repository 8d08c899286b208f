// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Symbols.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <concepts>

namespace zamber {

template <class Rig>
concept SymbolsRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.symbols() } -> std::same_as<const Symbols&>;
};

template <SymbolsRig Rig>
class SymbolsContract : public testing::Test {
protected:
    Rig rig;
    const Symbols& symbols = rig.symbols();

    static constexpr auto NAMES = std::to_array<const char*>(
        {"arrow.down.circle.fill", "clipboard", "clipboard.fill", "clock", "doc.on.clipboard", "doc.text",
         "gearshape.fill", "link", "lock.fill", "photo", "magnifyingglass", "pin", "pin.fill", "safari",
         "pin.slash.fill", "trash", "xmark", "xmark.circle.fill"});

    /// The most opaque pixel of the picture.
    static QColor strongest(const QPixmap& pixmap) {
        const QImage image = pixmap.toImage();
        QColor found = Qt::transparent;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                found = pixel.alpha() > found.alpha() ? pixel : found;
            }
        }
        return found;
    }
};

TYPED_TEST_SUITE_P(SymbolsContract);

TYPED_TEST_P(SymbolsContract, EveryNameThatTheProgramUsesIsDrawn) {
    for (const char* name : this->NAMES) {
        const QPixmap pixmap = this->symbols.pixmap(QString::fromLatin1(name), {.pointSize = 13, .color = Qt::red});
        ASSERT_FALSE(pixmap.isNull()) << name;
        EXPECT_GT(this->strongest(pixmap).alpha(), 200) << name;
    }
}

TYPED_TEST_P(SymbolsContract, AnUnknownNameHasNoPicture) {
    EXPECT_TRUE(this->symbols.pixmap(QStringLiteral("no.such.symbol"), {.color = Qt::red}).isNull());
    EXPECT_TRUE(this->symbols.pixmap(QString(), {.color = Qt::red}).isNull());
}

TYPED_TEST_P(SymbolsContract, ASymbolHasTheColourThatWasAskedFor) {
    for (const QColor& color : {QColor(Qt::red), QColor(20, 90, 200), QColor(Qt::white)}) {
        const QColor drawn =
            this->strongest(this->symbols.pixmap(QStringLiteral("trash"), {.pointSize = 32, .color = color}));
        EXPECT_EQ(drawn.rgb(), color.rgb());
    }
}

TYPED_TEST_P(SymbolsContract, ATranslucentColourIsNowhereStronger) {
    const QColor color(0, 0, 0, 100);
    for (const char* name : this->NAMES) {
        const SymbolStyle style{.pointSize = 24, .weight = QFont::Bold, .color = color};
        EXPECT_LE(this->strongest(this->symbols.pixmap(QString::fromLatin1(name), style)).alpha(), 101) << name;
    }
}

TYPED_TEST_P(SymbolsContract, TheSizeIsInPointsWhateverTheScale) {
    const QString name = QStringLiteral("pin.fill");
    const QPixmap once = this->symbols.pixmap(name, {.pointSize = 20, .color = Qt::red, .devicePixelRatio = 1});
    for (const double ratio : {1.25, 1.5, 2.0, 3.0}) {
        const QPixmap scaled =
            this->symbols.pixmap(name, {.pointSize = 20, .color = Qt::red, .devicePixelRatio = ratio});
        EXPECT_EQ(scaled.devicePixelRatio(), ratio);
        EXPECT_NEAR(scaled.deviceIndependentSize().height(), once.deviceIndependentSize().height(), 1);
        EXPECT_GE(scaled.height(), std::floor(once.height() * ratio));
    }
}

TYPED_TEST_P(SymbolsContract, TwiceThePointsIsAboutTwiceTheHeight) {
    const auto height = [&](double points) {
        return this->symbols.pixmap(QStringLiteral("clock"), {.pointSize = points, .color = Qt::red}).height();
    };
    EXPECT_GE(height(12), 12);
    EXPECT_LE(height(12), 18);
    EXPECT_NEAR(height(24), 2 * height(12), 2);
}

REGISTER_TYPED_TEST_SUITE_P(SymbolsContract, EveryNameThatTheProgramUsesIsDrawn, AnUnknownNameHasNoPicture,
                            ASymbolHasTheColourThatWasAskedFor, ATranslucentColourIsNowhereStronger,
                            TheSizeIsInPointsWhateverTheScale, TwiceThePointsIsAboutTwiceTheHeight);

} // namespace zamber
