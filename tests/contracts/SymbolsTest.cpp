// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/BootstrapSymbols.h"
#include "tests/contracts/SymbolsContract.h"
#include "tests/fakes/FakeSymbols.h"

namespace zamber {

using namespace Qt::StringLiterals;

namespace {

struct FakeSymbolsRig {
    FakeSymbolsRig() { fake.unknownNames.insert(u"no.such.symbol"_s); }
    FakeSymbols fake;
    const Symbols& symbols() { return fake; }
};

struct BootstrapSymbolsRig {
    freedesktop::BootstrapSymbols real;
    const Symbols& symbols() { return real; }
};

double ink(const QPixmap& pixmap) {
    const QImage image = pixmap.toImage();
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += image.pixelColor(x, y).alphaF();
        }
    }
    return sum;
}

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SymbolsContract, FakeSymbolsRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Bootstrap, SymbolsContract, BootstrapSymbolsRig);

TEST(BootstrapSymbols, AHeavierWeightHasMoreInk) {
    const freedesktop::BootstrapSymbols symbols;
    const auto inkAt = [&](QFont::Weight weight) {
        return ink(symbols.pixmap(u"magnifyingglass"_s, {.pointSize = 24, .weight = weight, .color = Qt::black}));
    };
    EXPECT_LT(inkAt(QFont::Normal), inkAt(QFont::Medium));
    EXPECT_LT(inkAt(QFont::Medium), inkAt(QFont::DemiBold));
    EXPECT_LT(inkAt(QFont::DemiBold), inkAt(QFont::Bold));
}

TEST(BootstrapSymbols, TheSlashedPinIsAPinWithAGapAndALine) {
    const freedesktop::BootstrapSymbols symbols;
    const SymbolStyle style{.pointSize = 40, .color = Qt::black};
    const QImage pin = symbols.pixmap(u"pin.fill"_s, style).toImage();
    const QImage slashed = symbols.pixmap(u"pin.slash.fill"_s, style).toImage();
    ASSERT_EQ(pin.size(), slashed.size());
    const int corner = pin.width() / 5;
    EXPECT_EQ(pin.pixelColor(corner, corner).alpha(), 0);
    EXPECT_GT(slashed.pixelColor(corner, corner).alpha(), 200) << "the line begins in the upper left";
    bool hasGap = false;
    for (int x = 0; x < pin.width(); ++x) {
        hasGap |=
            pin.pixelColor(x, pin.height() / 3).alpha() > 200 && slashed.pixelColor(x, pin.height() / 3).alpha() == 0;
    }
    EXPECT_TRUE(hasGap);
}

} // namespace zamber
