// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/DetectedUrl.h"

#include "tests/fakes/FakeLinkDetector.h"

#include <gtest/gtest.h>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

const QByteArray LINK = "https://example.org/a";
const QUrl URL(u"https://example.org/a"_s);

std::optional<QUrl> urlIn(const QByteArray& text) {
    FakeLinkDetector detector;
    return detectedUrl(clipboard::ClipboardContent::text(text), detector);
}

} // namespace

TEST(DetectedUrl, AShortTextHasALinkWhereverItStands) {
    EXPECT_EQ(urlIn(LINK), URL);
    EXPECT_EQ(urlIn("see " + LINK + " for more"), URL);
    EXPECT_EQ(urlIn("no link"), std::nullopt);
    EXPECT_EQ(urlIn(""), std::nullopt);
}

TEST(DetectedUrl, ATextOf199CharactersIsShortAndOneOf200IsNot) {
    const QByteArray start = LINK + " ";
    EXPECT_EQ(urlIn(start + QByteArray(199 - start.size(), 'x')), URL);
    EXPECT_EQ(urlIn(start + QByteArray(200 - start.size(), 'x')), std::nullopt);
}

TEST(DetectedUrl, CharactersAreWhatPeopleCount) {
    EXPECT_EQ(urlIn(LINK + " " + QByteArray("👩‍👩‍👧‍👦").repeated(100)), URL);
    EXPECT_EQ(urlIn(LINK + " " + QByteArray("👩‍👩‍👧‍👦").repeated(200)), std::nullopt);
}

TEST(DetectedUrl, BlanksAtTheEndsDoNotMakeATextLong) {
    EXPECT_EQ(urlIn(QByteArray(300, ' ') + LINK + QByteArray(300, '\n')), URL);
}

TEST(DetectedUrl, ALongTextIsALinkOnlyAsAWhole) {
    const QByteArray longLink = LINK + QByteArray(5000, 'x');
    EXPECT_EQ(urlIn(longLink), QUrl(QString::fromUtf8(longLink)));
    EXPECT_EQ(urlIn(longLink + " and more"), std::nullopt);
    EXPECT_EQ(urlIn(" " + longLink), std::nullopt);
    EXPECT_EQ(urlIn("x" + longLink), std::nullopt);
}

TEST(DetectedUrl, A500CharacterTextWithALinkInItsMiddleHasNone) {
    EXPECT_EQ(urlIn(QByteArray(240, 'x') + " " + LINK + " " + QByteArray(240, 'x')), std::nullopt);
}

TEST(DetectedUrl, AMatchWithoutAddressIsNone) {
    FakeLinkDetector detector;
    detector.withoutAddress = true;
    EXPECT_EQ(detectedUrl(clipboard::ClipboardContent::text(LINK), detector), std::nullopt);
}

TEST(DetectedUrl, AnImageHasNone) {
    FakeLinkDetector detector;
    EXPECT_EQ(detectedUrl(clipboard::ClipboardContent::image(LINK), detector), std::nullopt);
    EXPECT_EQ(detector.questions, 0);
}

TEST(DetectedUrl, OnlyTheBeginningOfAGiantTextIsSearched) {
    FakeLinkDetector detector;
    EXPECT_EQ(detectedUrl(clipboard::ClipboardContent::text(QByteArray(10'000'000, 'x')), detector), std::nullopt);
    EXPECT_LT(detector.longestQuestion, 10'000);
}

} // namespace zamber::popover
