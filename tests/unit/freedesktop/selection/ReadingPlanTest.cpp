// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/ReadingPlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zamber::freedesktop::selection {

namespace {

using testing::ElementsAreArray;
using Types = std::vector<QByteArray>;

struct OfferRow {
    const char* name;
    std::optional<Types> offered;
    Types candidates;
    std::optional<QByteArray> textBesideImage = std::nullopt;
    Types filesBeside = {};
    bool mayBeSecret = false;
};

void PrintTo(const OfferRow& row, std::ostream* out) {
    *out << row.name;
}

class ReadingPlanTest : public testing::TestWithParam<OfferRow> {};

TEST_P(ReadingPlanTest, AsksForTheBestFirst) {
    const OfferRow& row = GetParam();
    const ReadingPlan plan = planReading(row.offered);
    EXPECT_THAT(plan.candidates, ElementsAreArray(row.candidates));
    EXPECT_EQ(plan.textBesideImage, row.textBesideImage);
    EXPECT_THAT(plan.filesBeside, ElementsAreArray(row.filesBeside));
    EXPECT_EQ(plan.mayBeSecret, row.mayBeSecret);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReadingPlanTest,
    testing::Values(
        OfferRow{"an owner that cannot tell", std::nullopt, {"UTF8_STRING", "STRING"}},
        OfferRow{"nothing", Types{}, {}},
        OfferRow{"nothing that can be read", Types{"TARGETS", "COMPOUND_TEXT", "image/svg+xml", "text/html"}, {}},
        OfferRow{"exact texts before vague ones, however often they are offered",
                 Types{"TEXT", "STRING", "text/plain", "UTF8_STRING", "STRING", "text/plain;charset=utf-8"},
                 {"UTF8_STRING", "text/plain;charset=utf-8", "STRING", "text/plain", "TEXT"}},
        OfferRow{"images, the smallest encoding first",
                 Types{"image/x-MS-bmp", "image/tiff", "image/jpeg", "image/png", "image/png"},
                 {"image/png", "image/tiff", "image/jpeg", "image/x-MS-bmp"}},
        OfferRow{"after the best image its text",
                 Types{"image/tiff", "STRING", "UTF8_STRING", "image/png", "text/html"},
                 {"image/png", "UTF8_STRING", "STRING", "image/tiff"},
                 "UTF8_STRING"},
        OfferRow{"copied cells",
                 Types{"image/png", "image/bmp", "text/rtf", "UTF8_STRING"},
                 {"UTF8_STRING", "image/png", "image/bmp"},
                 "UTF8_STRING"},
        OfferRow{"a drawing of a text processor", Types{"image/png", "text/rtf"}, {"image/png"}},
        OfferRow{
            "copied files, the marks of a cut first",
            Types{"text/uri-list", "x-special/gnome-copied-files", "UTF8_STRING", "application/x-kde-cutselection"},
            {"UTF8_STRING"},
            std::nullopt,
            {"application/x-kde-cutselection", "x-special/gnome-copied-files", "text/uri-list"}},
        OfferRow{
            "a mark of a cut without files", Types{"application/x-kde-cutselection", "UTF8_STRING"}, {"UTF8_STRING"}},
        OfferRow{
            "a password", Types{"UTF8_STRING", "x-kde-passwordManagerHint"}, {"UTF8_STRING"}, std::nullopt, {}, true}));

} // namespace

} // namespace zamber::freedesktop::selection
