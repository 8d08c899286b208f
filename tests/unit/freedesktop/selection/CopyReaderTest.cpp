// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/CopyReader.h"

#include "tests/support/Pictures.h"
#include "tests/support/Waiting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace zamber::freedesktop::selection {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using enum OwnerAnswer::Outcome;

QByteArray copiedPicture(const char* format) {
    return filledPicture({9, 4}, Qt::darkGreen, format);
}

/// A program that has copied: its answers by type, in the order of the types that it offers.
struct Owner {
    std::vector<std::pair<QByteArray, OwnerAnswer>> answers;

    void offer(const QByteArray& type, const QByteArray& bytes) {
        answers.emplace_back(type, OwnerAnswer{.outcome = Delivered, .type = type, .bytes = bytes});
    }
    void offer(const QByteArray& type, OwnerAnswer::Outcome outcome) {
        answers.emplace_back(type, OwnerAnswer{.outcome = outcome, .type = {}, .bytes = {}});
    }
};

class CopyReaderTest : public testing::Test {
protected:
    Owner owner;
    std::vector<QByteArray> asked;
    std::vector<CopyReader::Outcome> told;

    /// Reads to the end. The questions are in `asked`, the outcomes in `told`.
    void read(bool canTell = true) {
        told.clear();
        CopyReader reader([this](const QByteArray& type, auto answer) { handleQuestion(type, answer); },
                          [this](const CopyReader::Outcome& outcome) { told.push_back(outcome); });
        std::vector<QByteArray> types;
        for (const auto& [type, answer] : owner.answers) {
            types.push_back(type);
        }
        reader.begin(canTell ? std::optional(types) : std::nullopt);
        ASSERT_TRUE(waitUntil([this] { return isOver(); }));
    }

    template <class Outcome>
    bool ends() const {
        return std::holds_alternative<Outcome>(told.back());
    }
    const SelectionContent& content() const { return std::get<CopyReader::Arrived>(told.back()).content; }

private:
    void handleQuestion(const QByteArray& type, const std::function<void(const OwnerAnswer&)>& answer) {
        asked.push_back(type);
        const auto found = std::ranges::find(owner.answers, type, &std::pair<QByteArray, OwnerAnswer>::first);
        answer(found == owner.answers.end() ? OwnerAnswer{} : found->second);
    }
    bool isOver() const {
        if (told.empty()) {
            return false;
        }
        const auto* const arrived = std::get_if<CopyReader::Arrived>(&told.back());
        return arrived == nullptr || arrived->isComplete;
    }
};

TEST_F(CopyReaderTest, ATextIsAskedForOnce) {
    owner.offer("STRING", "less");
    owner.offer("UTF8_STRING", "whole");
    read();
    EXPECT_THAT(asked, ElementsAre("UTF8_STRING"));
    EXPECT_EQ(content().text, "whole");
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(CopyReaderTest, AnOwnerThatCannotTellItsTypesIsAskedForTheTwoOldNames) {
    read(false);
    EXPECT_THAT(asked, ElementsAre("UTF8_STRING", "STRING"));
    EXPECT_TRUE(ends<CopyReader::Failed>());
}

TEST_F(CopyReaderTest, WhatOffersNothingReadableIsAChangeWithoutContent) {
    owner.offer("text/html", "<b>x</b>");
    read();
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(content().isEmpty());
}

TEST_F(CopyReaderTest, OfASecretNothingIsAskedFor) {
    owner.offer("x-kde-passwordManagerHint", "secret");
    owner.offer("UTF8_STRING", "my password");
    read();
    EXPECT_THAT(asked, ElementsAre("x-kde-passwordManagerHint"));
    EXPECT_TRUE(ends<CopyReader::Secret>());
}

TEST_F(CopyReaderTest, AHintThatSaysOtherwiseOrIsRefusedIsNone) {
    for (const bool isRefused : {false, true}) {
        owner.answers.clear();
        isRefused ? owner.offer("x-kde-passwordManagerHint", Refused)
                  : owner.offer("x-kde-passwordManagerHint", "public");
        owner.offer("UTF8_STRING", "harmless");
        read();
        EXPECT_EQ(content().text, "harmless");
    }
}

TEST_F(CopyReaderTest, WhatMayBeASecretIsNotAskedForWhenTheHintDoesNotCome) {
    for (const auto outcome : {Silent, BrokenOff}) {
        owner.answers.clear();
        asked.clear();
        owner.offer("x-kde-passwordManagerHint", outcome);
        owner.offer("UTF8_STRING", "perhaps a secret");
        read();
        EXPECT_THAT(asked, ElementsAre("x-kde-passwordManagerHint"));
        EXPECT_TRUE(ends<CopyReader::Failed>());
    }
}

struct FailingImageRow {
    const char* name;
    const char* type;
    OwnerAnswer answer;
};

void PrintTo(const FailingImageRow& row, std::ostream* out) {
    *out << row.name;
}

class FailingImageTest : public CopyReaderTest, public testing::WithParamInterface<FailingImageRow> {};

TEST_P(FailingImageTest, ItsTextIsAskedForAndNoOtherImage) {
    owner.answers.emplace_back(GetParam().type, GetParam().answer);
    owner.offer("image/x-MS-bmp", copiedPicture("BMP"));
    owner.offer("UTF8_STRING", "its text");
    read();
    EXPECT_THAT(asked, ElementsAre(GetParam().type, "UTF8_STRING"));
    EXPECT_EQ(content().text, "its text");
    EXPECT_EQ(content().image, std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FailingImageTest,
    testing::Values(FailingImageRow{"refused", "image/png", {Refused, {}, {}}},
                    FailingImageRow{"silent", "image/png", {Silent, {}, {}}},
                    FailingImageRow{"of no length", "image/png", {Delivered, "image/png", ""}},
                    FailingImageRow{"of no length and type", "image/png", {Delivered, "", ""}},
                    FailingImageRow{"of another type", "image/png", {Delivered, "STRING", "x"}},
                    FailingImageRow{"no image", "image/png", {Delivered, "image/png", "no image"}},
                    FailingImageRow{
                        "cut short", "image/png", {Delivered, "image/png", copiedPicture("PNG").chopped(20)}},
                    FailingImageRow{"no TIFF", "image/tiff", {Delivered, "image/tiff", "II*"}},
                    FailingImageRow{"no JPEG", "image/jpeg", {Delivered, "image/jpeg", "no image"}}),
    [](const auto& row) { return QByteArray(row.param.name).replace(' ', '_').toStdString(); });

TEST_F(CopyReaderTest, ThereIsNoMoreThanOneTryAfterTheFirst) {
    for (const char* type : {"image/png", "image/tiff", "UTF8_STRING", "STRING"}) {
        owner.offer(type, Refused);
    }
    read();
    EXPECT_THAT(asked, ElementsAre("image/png", "UTF8_STRING"));
    EXPECT_TRUE(ends<CopyReader::Failed>());
}

TEST_F(CopyReaderTest, AnImageWithoutATextIsTakenAsItCameWhateverItsBytesAre) {
    owner.offer("image/png", "no image");
    read();
    EXPECT_EQ(content().image, "no image");
    EXPECT_EQ(content().imageLabel, ImageFormat::Png);
}

TEST_F(CopyReaderTest, AnImageThatDoesNotDecodeIsTakenWhenItsTextDoesNotCome) {
    owner.offer("image/tiff", "no image");
    owner.offer("UTF8_STRING", Refused);
    read();
    EXPECT_EQ(content().image, "no image");
    EXPECT_EQ(content().imageLabel, ImageFormat::Tiff);
    EXPECT_THAT(asked, ElementsAre("image/tiff", "UTF8_STRING"));
}

TEST_F(CopyReaderTest, WhatBreaksOffIsNotReplacedByLess) {
    for (const char* type : {"image/png", "UTF8_STRING"}) {
        owner.answers.clear();
        asked.clear();
        owner.offer(type, BrokenOff);
        owner.offer("STRING", "less");
        read();
        EXPECT_THAT(asked, ElementsAre(type));
        EXPECT_TRUE(ends<CopyReader::Failed>());
    }
}

TEST_F(CopyReaderTest, CopiedCellsAreTheirTextAndTheirPictureIsNotAskedFor) {
    owner.offer("image/png", copiedPicture("PNG"));
    owner.offer("text/rtf", "{\\rtf1 1 2}");
    owner.offer("UTF8_STRING", "1\t2\n");
    read();
    EXPECT_THAT(asked, ElementsAre("UTF8_STRING"));
    EXPECT_EQ(content().text, "1\t2\n");
    EXPECT_EQ(content().image, std::nullopt);
}

TEST_F(CopyReaderTest, ALesserImageBecomesAPng) {
    owner.offer("image/jpeg", copiedPicture("JPEG"));
    read();
    ASSERT_TRUE(content().image);
    EXPECT_TRUE(hasFormat(*content().image, ImageFormat::Png));
    EXPECT_EQ(content().imageLabel, ImageFormat::Png);
}

TEST_F(CopyReaderTest, TheTextBesideAnImageIsAskedForOnceTheImageHasArrived) {
    const QByteArray png = copiedPicture("PNG");
    owner.offer("STRING", "less");
    owner.offer("UTF8_STRING", "https://zamber.example/a.png");
    owner.offer("image/png", png);
    owner.offer("image/tiff", copiedPicture("TIFF"));
    read();
    EXPECT_THAT(asked, ElementsAre("image/png", "UTF8_STRING"));
    ASSERT_EQ(told.size(), 2U);
    const auto& first = std::get<CopyReader::Arrived>(told.front());
    EXPECT_FALSE(first.isComplete);
    EXPECT_EQ(first.content.image, png);
    EXPECT_EQ(first.content.text, std::nullopt);
    EXPECT_EQ(content().image, png);
    EXPECT_EQ(content().text, "https://zamber.example/a.png");
}

TEST_F(CopyReaderTest, ATextBesideAnImageThatDoesNotComeIsNone) {
    for (const auto outcome : {Refused, Silent, BrokenOff}) {
        owner.answers.clear();
        owner.offer("image/png", copiedPicture("PNG"));
        owner.offer("UTF8_STRING", outcome);
        read();
        EXPECT_TRUE(content().image);
        EXPECT_EQ(content().text, std::nullopt);
    }
}

struct FilesRow {
    const char* name;
    std::vector<std::pair<QByteArray, QByteArray>> offered;
    std::vector<QByteArray> asked;
    std::map<QByteArray, QByteArray> kept;
};

void PrintTo(const FilesRow& row, std::ostream* out) {
    *out << row.name;
}

class CopiedFilesTest : public CopyReaderTest, public testing::WithParamInterface<FilesRow> {};

TEST_P(CopiedFilesTest, StayFilesUnlessTheyWereCut) {
    owner.offer("UTF8_STRING", "/a");
    for (const auto& [type, bytes] : GetParam().offered) {
        owner.offer(type, bytes);
    }
    read();
    std::vector<QByteArray> expected{"UTF8_STRING"};
    std::ranges::copy(GetParam().asked, std::back_inserter(expected));
    EXPECT_THAT(asked, ElementsAreArray(expected));
    EXPECT_EQ(content().text, "/a");
    EXPECT_EQ(content().files, GetParam().kept);
}

const QByteArray GNOME = "x-special/gnome-copied-files";
const QByteArray MATE = "x-special/mate-copied-files";
const QByteArray URIS = "text/uri-list";
const QByteArray KDE = "application/x-kde-cutselection";

INSTANTIATE_TEST_SUITE_P(
    Rows, CopiedFilesTest,
    testing::Values(
        FilesRow{"copied by Nautilus",
                 {{URIS, "file:///a"}, {GNOME, "copy\nfile:///a"}},
                 {GNOME, URIS},
                 {{GNOME, "copy\nfile:///a"}, {URIS, "file:///a"}}},
        FilesRow{"copied by Dolphin", {{URIS, "file:///a"}, {KDE, "0"}}, {KDE, URIS}, {{URIS, "file:///a"}}},
        FilesRow{"cut by Nautilus", {{URIS, "file:///a"}, {GNOME, "cut\nfile:///a"}}, {GNOME}, {}},
        FilesRow{"cut by Caja",
                 {{GNOME, "copy\nfile:///a"}, {MATE, "cut\nfile:///a"}, {URIS, "file:///a"}},
                 {GNOME, MATE},
                 {}},
        FilesRow{"cut by Dolphin", {{URIS, "file:///a"}, {KDE, "1"}, {GNOME, "copy\nfile:///a"}}, {KDE}, {}},
        FilesRow{"an empty list", {{URIS, ""}}, {URIS}, {}}),
    [](const auto& row) { return QByteArray(row.param.name).replace(' ', '_').toStdString(); });

TEST_F(CopyReaderTest, FilesAloneAreKeptForWhenTheirProgramHasGone) {
    owner.offer(URIS, "file:///a");
    read();
    ASSERT_EQ(told.size(), 2U);
    EXPECT_TRUE(std::get<CopyReader::Arrived>(told.front()).content.isEmpty());
    EXPECT_EQ(content().files.at(URIS), "file:///a");
}

TEST_F(CopyReaderTest, WhoDoesNotAnswerForTheOneFormIsNotAskedForTheNext) {
    owner.offer("UTF8_STRING", "/a");
    owner.offer(GNOME, Silent);
    owner.offer(URIS, "file:///a");
    read();
    EXPECT_THAT(asked, ElementsAre("UTF8_STRING", GNOME));
    EXPECT_EQ(content().text, "/a");
}

} // namespace

} // namespace zamber::freedesktop::selection
