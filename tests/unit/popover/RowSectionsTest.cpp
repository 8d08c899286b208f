// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RowSections.h"

#include <gtest/gtest.h>

#include <vector>

namespace zamber::popover {

namespace {

constexpr int SECTION_HEADER = -1;

std::vector<int> elements(int rowCount, int pinnedCount) {
    const RowSections sections(rowCount, pinnedCount);
    std::vector<int> found;
    for (int element = 0; element < sections.elementCount(); ++element) {
        found.push_back(sections.rowOfElement(element).value_or(SECTION_HEADER));
    }
    return found;
}

} // namespace

TEST(RowSections, WithoutPinnedRowsThereAreNoHeaders) {
    EXPECT_EQ(elements(3, 0), (std::vector{0, 1, 2}));
    EXPECT_EQ(elements(0, 0), std::vector<int>());
}

TEST(RowSections, PinnedAndRecentRowsHaveAHeaderEach) {
    EXPECT_EQ(elements(4, 2), (std::vector{SECTION_HEADER, 0, 1, SECTION_HEADER, 2, 3}));
}

TEST(RowSections, OnlyPinnedRowsHaveOneHeader) {
    EXPECT_EQ(elements(2, 2), (std::vector{SECTION_HEADER, 0, 1}));
}

TEST(RowSections, EveryRowIsFoundAgain) {
    for (const int pinned : {0, 1, 3, 5}) {
        const RowSections sections(5, pinned);
        for (int row = 0; row < 5; ++row) {
            EXPECT_EQ(sections.rowOfElement(sections.elementOfRow(row)), row);
        }
    }
}

} // namespace zamber::popover
