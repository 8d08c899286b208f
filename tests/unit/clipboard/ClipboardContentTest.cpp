// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/ClipboardContent.h"

#include "preferences/PreferenceKeys.h"

#include "tests/fakes/FakeUserDefaults.h"

#include <QSet>

#include <gtest/gtest.h>

namespace zamber::clipboard {

namespace {

class ClipboardContentTest : public testing::Test {
protected:
    ClipboardContentTest() { UserDefaults::setStandard(&defaults); }
    ~ClipboardContentTest() override { UserDefaults::setStandard(nullptr); }

    FakeUserDefaults defaults;
};

QByteArray times(int count, const QByteArray& text) {
    return text.repeated(count);
}

TEST_F(ClipboardContentTest, TextOfExactly150CharactersIsShownWhole) {
    const auto text = times(150, "x");
    EXPECT_EQ(ClipboardContent::text(text).preview(), QString::fromUtf8(text));
    EXPECT_EQ(ClipboardContent::text("  " + text + "\n\n").preview(), QString::fromUtf8(text));
}

TEST_F(ClipboardContentTest, TextOf151CharactersIsCutAfter150) {
    const auto text = times(151, "x");
    EXPECT_EQ(ClipboardContent::text(text).preview(), QString::fromUtf8(times(150, "x") + "…"));
}

TEST_F(ClipboardContentTest, TheCutSplitsNoEmojiAndNoAccentedLetter) {
    const QByteArray family = "👩‍👩‍👧‍👦";
    const QByteArray accented = "e\u0301";
    EXPECT_EQ(ClipboardContent::text(times(150, family)).preview(), QString::fromUtf8(times(150, family)));
    EXPECT_EQ(ClipboardContent::text(times(151, family)).preview(), QString::fromUtf8(times(150, family) + "…"));
    EXPECT_EQ(ClipboardContent::text(times(149, "a") + accented + "b").preview(),
              QString::fromUtf8(times(149, "a") + accented + "…"));
    EXPECT_EQ(ClipboardContent::text(times(151, "\r\n") + "x" + times(150, "\r\n") + "y").preview(),
              QString::fromUtf8("x" + times(149, "\r\n") + "…"));
}

TEST_F(ClipboardContentTest, PreviewKeepsInnerLineBreaks) {
    EXPECT_EQ(ClipboardContent::text("one\n two\n").preview(), QStringLiteral("one\n two"));
    EXPECT_EQ(ClipboardContent::text(" \n").preview(), QString());
}

TEST_F(ClipboardContentTest, HelloAmongSpacesIsTrimmedForThePreviewAndCountedWhole) {
    const auto content = ClipboardContent::text("  hello  \n");
    EXPECT_EQ(content.preview(), QStringLiteral("hello"));
    EXPECT_EQ(content.charCount(), 10);
    EXPECT_EQ(content.lineCount(), 1);
}

TEST_F(ClipboardContentTest, ASensitiveTextIsMaskedWhateverItsLengthWhenHidingIsOn) {
    const auto shortText = ClipboardContent::text("pwd");
    const auto longText = ClipboardContent::text(times(500, "token "));
    EXPECT_EQ(shortText.preview(), QStringLiteral("pwd"));
    write(defaults, preferences::hideSensitive, true);
    EXPECT_EQ(shortText.preview(), QStringLiteral("●●●●●●●●●●●●"));
    EXPECT_EQ(longText.preview(), QStringLiteral("●●●●●●●●●●●●"));
    EXPECT_EQ(ClipboardContent::text("harmless").preview(), QStringLiteral("harmless"));
    write(defaults, preferences::hideSensitive, false);
    EXPECT_EQ(shortText.preview(), QStringLiteral("pwd"));
    EXPECT_EQ(longText.preview().size(), 151);
}

TEST_F(ClipboardContentTest, HidingLooksAtTheUntrimmedText) {
    write(defaults, preferences::hideSensitive, true);
    EXPECT_EQ(ClipboardContent::text("the bearer ").preview(), QStringLiteral("●●●●●●●●●●●●"));
}

TEST_F(ClipboardContentTest, HidingChangesNothingButThePreview) {
    const auto content = ClipboardContent::text("my password\nis long");
    const auto id = content.id();
    write(defaults, preferences::hideSensitive, true);
    EXPECT_TRUE(content.isSensitive());
    EXPECT_EQ(content.id(), id);
    EXPECT_EQ(content.textValue(), "my password\nis long");
    EXPECT_EQ(content.charCount(), 19);
    EXPECT_EQ(content.lineCount(), 2);
}

TEST_F(ClipboardContentTest, AnImageIsNeverSensitiveAndHasNoCounts) {
    for (const bool hidden : {false, true}) {
        write(defaults, preferences::hideSensitive, hidden);
        const auto image = ClipboardContent::image("password\nsecret");
        EXPECT_EQ(image.preview(), QStringLiteral("📷 Image"));
        EXPECT_EQ(image.charCount(), 0);
        EXPECT_EQ(image.lineCount(), 0);
        EXPECT_FALSE(image.isSensitive());
        EXPECT_TRUE(image.isImage());
        EXPECT_EQ(image.textValue(), std::nullopt);
        EXPECT_EQ(image.bytes(), "password\nsecret");
    }
}

TEST_F(ClipboardContentTest, ALetterAndAnImageOfItsByteAreNotEqual) {
    const auto text = ClipboardContent::text("a");
    const auto image = ClipboardContent::image("a");
    EXPECT_FALSE(text == image);
    EXPECT_FALSE(image == text);
    EXPECT_NE(text.id(), image.id());
}

TEST_F(ClipboardContentTest, TextsAreEqualWhenCanonicallyEquivalentAndThenHaveOneId) {
    const auto composed = ClipboardContent::text("Zoë");
    const auto decomposed = ClipboardContent::text("Zoe\u0308");
    EXPECT_TRUE(composed == decomposed);
    EXPECT_EQ(composed.id(), decomposed.id());
    EXPECT_EQ(decomposed.textValue(), "Zoe\u0308");
    EXPECT_FALSE(composed == ClipboardContent::text("Zoe"));
    EXPECT_NE(composed.id(), ClipboardContent::text("Zoe").id());
    EXPECT_FALSE(ClipboardContent::text("a") == ClipboardContent::text("a "));
}

TEST_F(ClipboardContentTest, ImagesAreEqualWhenTheirBytesAre) {
    const QByteArray bytes("\0\1\2", 3);
    EXPECT_TRUE(ClipboardContent::image(bytes) == ClipboardContent::image(bytes));
    EXPECT_EQ(ClipboardContent::image(bytes).id(), ClipboardContent::image(bytes).id());
    EXPECT_FALSE(ClipboardContent::image(bytes) == ClipboardContent::image(QByteArray("\0\1\3", 3)));
    EXPECT_FALSE(ClipboardContent::image("e\xCC\x81") == ClipboardContent::image("\xC3\xA9"));
}

TEST_F(ClipboardContentTest, AnIdIsTheKindAndADecimalNumber) {
    QSet<QByteArray> ids;
    for (int i = 0; i < 100; ++i) {
        const auto text = ClipboardContent::text(QByteArray::number(i)).id();
        const auto image = ClipboardContent::image(QByteArray::number(i)).id();
        ASSERT_TRUE(text.startsWith("text-") && image.startsWith("image-"));
        bool isNumber = false;
        text.sliced(5).toLongLong(&isNumber);
        EXPECT_TRUE(isNumber);
        image.sliced(6).toLongLong(&isNumber);
        EXPECT_TRUE(isNumber);
        ids << text << image;
    }
    EXPECT_EQ(ids.size(), 200);
}

TEST_F(ClipboardContentTest, CopiesShareTheBytesAndTheTextIsHandedOutWithoutCopying) {
    const QByteArray text = times(1000, "x");
    const auto content = ClipboardContent::text(text);
    const auto copy = content; // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
    EXPECT_EQ(copy.bytes().constData(), text.constData());
    EXPECT_EQ(copy.textValue()->constData(), text.constData());
}

TEST_F(ClipboardContentTest, ATextHasNoImage) {
    EXPECT_EQ(ClipboardContent::text("a").nsImage(), std::nullopt);
    EXPECT_TRUE(ClipboardContent::text("a").thumbnail({10, 10}).isNull());
    EXPECT_FALSE(ClipboardContent::text("a").isImage());
}

TEST_F(ClipboardContentTest, SearchKeysFollowTheFolding) {
    const auto content = ClipboardContent::text("ISLAND");
    EXPECT_EQ(content.searchKey(text::CaseFolding::Common), "island");
    EXPECT_EQ(content.searchKey(text::CaseFolding::Turkic), "ısland");
    EXPECT_EQ(ClipboardContent::image("x").searchKey(text::CaseFolding::Common), "image");
}

TEST_F(ClipboardContentTest, WhatIsNotUtf8DoesNoHarm) {
    for (const auto* bytes : {"\xFF", "a\xC3", "\xE2\x82\xE2", "\x80\x80\x80\x80\x80\x80\x80"}) {
        const auto content = ClipboardContent::text(bytes);
        EXPECT_FALSE(content.preview().isEmpty());
        EXPECT_GT(content.charCount(), 0);
        EXPECT_EQ(content.lineCount(), 1);
        EXPECT_FALSE(content.isSensitive());
        EXPECT_EQ(content.textValue(), bytes);
        EXPECT_TRUE(content == ClipboardContent::text(bytes));
    }
}

} // namespace

} // namespace zamber::clipboard
