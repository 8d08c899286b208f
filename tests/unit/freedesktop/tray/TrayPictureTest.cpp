// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/TrayPicture.h"

#include <QColor>
#include <QPainter>

#include <gtest/gtest.h>

#include <cstdlib>

namespace zamber::freedesktop::tray {

namespace {

/// The picture as it is seen on a panel of that colour.
QImage onPanel(int pixels, const QColor& panel) {
    QImage seen(pixels, pixels, QImage::Format_RGB32);
    seen.fill(panel);
    QPainter(&seen).drawImage(0, 0, trayPicture(pixels));
    return seen;
}

/// The share of the picture that stands out against the panel.
double shareThatStandsOut(int pixels, const QColor& panel) {
    constexpr int CLEARLY = 90; // of 255
    const QImage seen = onPanel(pixels, panel);
    int count = 0;
    for (int y = 0; y < pixels; ++y) {
        for (int x = 0; x < pixels; ++x) {
            count += std::abs(seen.pixelColor(x, y).lightness() - panel.lightness()) > CLEARLY ? 1 : 0;
        }
    }
    return static_cast<double>(count) / (pixels * pixels);
}

/// How often light and dark change along a row below the text, from the left edge to the middle.
int edgesOfOutline(const QImage& seen) {
    const int y = seen.height() - 1 - seen.height() / 6; // under the text
    int edges = 0;
    for (int x = 1; x < seen.width() / 2; ++x) {
        const bool isLight = seen.pixelColor(x, y).lightness() > 128;
        const bool wasLight = seen.pixelColor(x - 1, y).lightness() > 128;
        edges += isLight != wasLight ? 1 : 0;
    }
    return edges;
}

} // namespace

class TrayPictureTest : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Sizes, TrayPictureTest, testing::Values(16, 22, 24, 32, 48, 64));

TEST_P(TrayPictureTest, IsThatLargeAndLeavesItsCornersFree) {
    const QImage picture = trayPicture(GetParam());
    EXPECT_EQ(picture.size(), QSize(GetParam(), GetParam()));
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(GetParam() - 1, GetParam() - 1).alpha(), 0);
}

TEST_P(TrayPictureTest, StandsOutOnPanelsLightAndDark) {
    for (const char* panel : {"#ffffff", "#f6f5f4", "#dcdcdc", "#2d2d2d", "#202428", "#000000"}) {
        EXPECT_GT(shareThatStandsOut(GetParam(), QColor(panel)), 0.15) << panel;
    }
}

TEST_P(TrayPictureTest, ItsOutlineIsOneLineOnALightPanelAndASheetOnADarkOne) {
    EXPECT_EQ(edgesOfOutline(onPanel(GetParam(), QColor("#f6f5f4"))), 2) << "light, one dark line, light";
    EXPECT_EQ(edgesOfOutline(onPanel(GetParam(), QColor("#202428"))), 1) << "dark, then the sheet";
}

TEST_P(TrayPictureTest, StandsUprightInTheMiddle) {
    const QImage picture = trayPicture(GetParam());
    constexpr int SMOOTHING = 24; // of 255
    for (int y = 0; y < GetParam(); ++y) {
        for (int x = 0; x < GetParam() / 2; ++x) {
            const int mirrored = GetParam() - 1 - x;
            EXPECT_NEAR(picture.pixelColor(x, y).alpha(), picture.pixelColor(mirrored, y).alpha(), SMOOTHING)
                << x << ',' << y;
        }
    }
}

} // namespace zamber::freedesktop::tray
