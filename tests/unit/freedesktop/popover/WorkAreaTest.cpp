// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/WorkArea.h"

#include <gtest/gtest.h>

#include <ostream>

namespace zamber::freedesktop::popover {

namespace {

constexpr QRect SCREEN(1280, 100, 1920, 1080);

struct CornerCase {
    const char* panels;
    QMargins taken;
    QPoint (QRect::*corner)() const;
};

void PrintTo(const CornerCase& corner, std::ostream* out) {
    *out << corner.panels;
}

class CornerNextToPanel : public testing::TestWithParam<CornerCase> {};

} // namespace

TEST_P(CornerNextToPanel, IsTheWorkAreasCornerAtTheEndOfThePanel) {
    const QRect workArea = SCREEN.marginsRemoved(GetParam().taken);
    EXPECT_EQ(cornerNextToPanel(SCREEN, workArea), (workArea.*GetParam().corner)());
}

INSTANTIATE_TEST_SUITE_P(
    Table, CornerNextToPanel,
    testing::Values(CornerCase{"none", {}, &QRect::topRight}, CornerCase{"top", {0, 28, 0, 0}, &QRect::topRight},
                    CornerCase{"bottom", {0, 0, 0, 40}, &QRect::bottomRight},
                    CornerCase{"left", {60, 0, 0, 0}, &QRect::bottomLeft},
                    CornerCase{"right", {0, 0, 60, 0}, &QRect::bottomRight},
                    CornerCase{"top and a dock at the bottom", {0, 28, 0, 64}, &QRect::topRight},
                    CornerCase{"top and a dock at the left", {70, 28, 0, 0}, &QRect::topRight},
                    CornerCase{"bottom and a dock at the left", {70, 0, 0, 40}, &QRect::bottomRight}));

} // namespace zamber::freedesktop::popover
