// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionOffer.h"

#include "tests/support/Pictures.h"
#include "tests/support/Waiting.h"

#include <QImage>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zamber::freedesktop::selection {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QByteArray offeredPicture(const char* format) {
    return filledPicture({12, 6}, Qt::darkRed, format);
}

class SelectionOfferTest : public testing::Test {
protected:
    SelectionOffer offer;

    /// The answers to so many requests, once all have arrived.
    std::vector<std::optional<SelectionOffer::Data>> ask(const QByteArray& type, std::size_t times = 1) {
        std::vector<std::optional<SelectionOffer::Data>> answers;
        for (std::size_t i = 0; i < times; ++i) {
            offer.convert(type, [&answers](const auto& data) { answers.push_back(data); });
        }
        EXPECT_TRUE(waitUntil([&] { return answers.size() >= times; }));
        EXPECT_EQ(answers.size(), times);
        return answers;
    }

    std::optional<QByteArray> bytesOf(const QByteArray& type) {
        const auto answer = ask(type).front();
        return answer ? std::optional(answer->bytes) : std::nullopt;
    }
};

TEST_F(SelectionOfferTest, NothingIsOfferedOfNothing) {
    EXPECT_THAT(offer.types(), IsEmpty());
    EXPECT_EQ(bytesOf("UTF8_STRING"), std::nullopt);
    EXPECT_EQ(bytesOf("image/png"), std::nullopt);
    EXPECT_EQ(bytesOf(""), std::nullopt);
}

TEST_F(SelectionOfferTest, ATextIsOfferedUnderAllItsNames) {
    offer.setContent({.text = "naïve 文", .image = {}, .files = {}});
    EXPECT_THAT(offer.types(), ElementsAre("UTF8_STRING", "text/plain;charset=utf-8", "text/plain;charset=UTF-8",
                                           "text/plain", "TEXT", "STRING"));
    for (const QByteArray& type : offer.types()) {
        const auto answer = ask(type).front();
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->bytes, type == "STRING" ? QByteArray("na\xefve ?") : QByteArray("naïve 文"));
        EXPECT_EQ(answer->type, type == "TEXT" ? QByteArray("UTF8_STRING") : type);
    }
    EXPECT_EQ(bytesOf("image/png"), std::nullopt);
}

TEST_F(SelectionOfferTest, AnImageIsGivenUnchangedUnderItsLabelAndConvertedUnderTheOthers) {
    const QByteArray png = offeredPicture("PNG");
    // The label is TIFF for a PNG's bytes, too, as the program writes them.
    offer.setContent({.text = {}, .image = png, .imageLabel = ImageFormat::Tiff, .files = {}});
    EXPECT_THAT(offer.types(), ElementsAre("image/png", "image/tiff", "image/bmp"));
    EXPECT_EQ(bytesOf("image/tiff"), png);
    EXPECT_EQ(bytesOf("image/png"), png);
    const auto bmp = bytesOf("image/bmp");
    ASSERT_TRUE(bmp);
    EXPECT_EQ(QImage::fromData(*bmp, "BMP").size(), QSize(12, 6));
    EXPECT_EQ(bytesOf("UTF8_STRING"), std::nullopt);
}

TEST_F(SelectionOfferTest, ATiffBecomesAPngOnceHoweverManyAsk) {
    offer.setContent({.text = {}, .image = offeredPicture("TIFF"), .imageLabel = ImageFormat::Tiff, .files = {}});
    const auto answers = ask("image/png", 5);
    for (const auto& answer : answers) {
        ASSERT_TRUE(answer);
        EXPECT_TRUE(hasFormat(answer->bytes, ImageFormat::Png));
        EXPECT_EQ(answer->bytes.constData(), answers.front()->bytes.constData()) << "a conversion of its own";
    }
}

TEST_F(SelectionOfferTest, AnImageThatDoesNotDecodeIsRefusedInOtherFormats) {
    offer.setContent({.text = {}, .image = "no image", .imageLabel = ImageFormat::Tiff, .files = {}});
    EXPECT_EQ(bytesOf("image/tiff"), "no image");
    EXPECT_EQ(bytesOf("image/png"), std::nullopt);
}

TEST_F(SelectionOfferTest, AllFormsOfOneCopyAreOffered) {
    offer.setContent({.text = "/a",
                      .image = offeredPicture("PNG"),
                      .imageLabel = ImageFormat::Png,
                      .files = {{"text/uri-list", "file:///a"}, {"x-special/gnome-copied-files", "copy\nfile:///a"}}});
    EXPECT_THAT(offer.types(),
                testing::IsSupersetOf({QByteArray("image/png"), QByteArray("UTF8_STRING"), QByteArray("text/uri-list"),
                                       QByteArray("x-special/gnome-copied-files")}));
    EXPECT_EQ(bytesOf("text/uri-list"), "file:///a");
    EXPECT_EQ(bytesOf("x-special/gnome-copied-files"), "copy\nfile:///a");
    EXPECT_EQ(bytesOf("UTF8_STRING"), "/a");
    EXPECT_EQ(bytesOf("application/x-kde-cutselection"), std::nullopt);
}

TEST_F(SelectionOfferTest, ForAnotherProgramToServeItAnImageIsSavedAsPngAndAsWhatItIs) {
    const auto saved = [this](const QByteArray& image) {
        offer.setContent({.text = {}, .image = image, .imageLabel = ImageFormat::Tiff, .files = {}});
        return offer.typesToSave();
    };
    EXPECT_THAT(saved(offeredPicture("PNG")), ElementsAre("image/png"));
    EXPECT_THAT(saved(offeredPicture("TIFF")), ElementsAre("image/png", "image/tiff"));
    EXPECT_THAT(saved(offeredPicture("BMP")), ElementsAre("image/png", "image/bmp"));
    offer.setContent({.text = "words", .image = {}, .files = {{"text/uri-list", "file:///a"}}});
    EXPECT_THAT(offer.typesToSave(), testing::ElementsAreArray(offer.types()));
    offer.setContent({});
    EXPECT_THAT(offer.typesToSave(), IsEmpty());
}

TEST_F(SelectionOfferTest, WhoWaitsForAConversionGetsItThoughTheContentHasChanged) {
    offer.setContent({.text = {}, .image = offeredPicture("TIFF"), .imageLabel = ImageFormat::Tiff, .files = {}});
    std::optional<SelectionOffer::Data> former;
    offer.convert("image/png", [&former](const auto& data) { former = data; });
    offer.setContent({.text = "words", .image = {}, .files = {}});
    EXPECT_EQ(bytesOf("image/png"), std::nullopt);
    ASSERT_TRUE(waitUntil([&former] { return former.has_value(); }));
    EXPECT_TRUE(hasFormat(former->bytes, ImageFormat::Png));
}

} // namespace

} // namespace zamber::freedesktop::selection
