// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/LayerShell.h"
#include "platform/wayland/LayerWindowSystem.h"

#include <gtest/gtest.h>

namespace zamber::wayland {

namespace {

const QRect SCREEN_AREA(0, 0, 1280, 800);
const QSize SIZE(492, 472);

TEST(LayerTest, AWindowKeepsItsDistancesFromTheNearestCorner) {
    struct Row {
        QPoint topLeft;
        Qt::Edges edges;
        QMargins distances;
    };
    for (const Row& row : {
             Row{{10, 20}, Qt::LeftEdge | Qt::TopEdge, {10, 20, 0, 0}},
             Row{{780, 20}, Qt::RightEdge | Qt::TopEdge, {0, 20, 8, 0}},
             Row{{10, 320}, Qt::LeftEdge | Qt::BottomEdge, {10, 0, 0, 8}},
             Row{{780, 320}, Qt::RightEdge | Qt::BottomEdge, {0, 0, 8, 8}},
             Row{{807, -11}, Qt::RightEdge | Qt::TopEdge, {0, -11, -19, 0}}, // the shadow is beyond the screen
         }) {
        const Layer layer = layerAt(QRect(row.topLeft, SIZE), SCREEN_AREA);
        EXPECT_EQ(layer.edges, row.edges) << row.topLeft.x();
        EXPECT_EQ(layer.distances, row.distances) << row.topLeft.x();
        EXPECT_TRUE(layer.heedsPanels);
    }
}

TEST(LayerTest, DistancesAreFromWhatPanelsLeaveFree) {
    EXPECT_EQ(layerAt(QRect(QPoint(780, 40), SIZE), QRect(0, 30, 1280, 770)).distances, QMargins(0, 10, 8, 0));
    EXPECT_EQ(layerAt(QRect(QPoint(1280 + 780, 20), SIZE), QRect(1280, 0, 1280, 800)).distances, QMargins(0, 20, 8, 0));
}

} // namespace

} // namespace zamber::wayland
