// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

#include <concepts>
#include <functional>

namespace zamber {

/// What the suite needs around a pasteboard. A rig is made for each case and starts with a pasteboard that works.
/// The rest of it is another program on the same desktop:
/// - `copyText`, `copyImage`, `copyImageWithText`: that program copies, offering exactly these representations;
/// - `copyNothing`: it copies something that is neither an image nor a text;
/// - `pastedText`, `pastedImage`: what it gets when it pastes, or nothing;
/// - `waitUntil`: lets the main loop run until the condition holds; false when it gives up;
/// - `settle`: lets the main loop run until everything under way has surely arrived.
template <class Rig>
concept PasteboardRig = std::default_initializable<Rig> &&
                        requires(Rig rig, ImageType type, QByteArray bytes, std::function<bool()> condition) {
                            { rig.pasteboard() } -> std::same_as<Pasteboard&>;
                            rig.copyText(bytes);
                            rig.copyImage(type, bytes);
                            rig.copyImageWithText(type, bytes, bytes);
                            rig.copyNothing();
                            { rig.pastedText() } -> std::same_as<std::optional<QByteArray>>;
                            { rig.pastedImage(type) } -> std::same_as<std::optional<QByteArray>>;
                            { rig.waitUntil(condition) } -> std::same_as<bool>;
                            rig.settle();
                        };

template <PasteboardRig Rig>
class PasteboardContract : public testing::Test {
protected:
    Rig rig;
    Pasteboard& pasteboard = rig.pasteboard();

    /// Runs the other program's copy and waits until it has arrived, which one new count tells.
    template <class Copy>
    bool arrives(Copy copy) {
        const int before = pasteboard.changeCount();
        copy();
        const bool moved = rig.waitUntil([&] { return pasteboard.changeCount() != before; });
        rig.settle();
        return moved;
    }

    static QByteArray encodedImage(const char* format) {
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        EXPECT_TRUE(image.save(&buffer, format));
        return buffer.data();
    }
};

TYPED_TEST_SUITE_P(PasteboardContract);

TYPED_TEST_P(PasteboardContract, ATextFromAnotherProgramArrives) {
    const QByteArray text = "one\ttwo\r\nthree Zoë 文字 🙂 ";
    ASSERT_TRUE(this->arrives([&] { this->rig.copyText(text); }));
    EXPECT_EQ(this->pasteboard.string(), text);
    EXPECT_EQ(this->pasteboard.data(ImageType::Tiff), std::nullopt);
    EXPECT_EQ(this->pasteboard.data(ImageType::Png), std::nullopt);
}

TYPED_TEST_P(PasteboardContract, TheSameTextCopiedTwiceMovesTheCountTwice) {
    ASSERT_TRUE(this->arrives([&] { this->rig.copyText("again"); }));
    ASSERT_TRUE(this->arrives([&] { this->rig.copyText("again"); }));
    EXPECT_EQ(this->pasteboard.string(), "again");
}

TYPED_TEST_P(PasteboardContract, ReadingMovesNothing) {
    ASSERT_TRUE(this->arrives([&] { this->rig.copyText("read me"); }));
    const int count = this->pasteboard.changeCount();
    EXPECT_EQ(this->pasteboard.string(), this->pasteboard.string());
    this->pasteboard.data(ImageType::Png);
    this->rig.settle();
    EXPECT_EQ(this->pasteboard.changeCount(), count);
}

TYPED_TEST_P(PasteboardContract, ATextOfSeveralMegabytesArrivesWhole) {
    QByteArray text;
    for (int line = 0; text.size() < 5'000'000; ++line) {
        text += "line " + QByteArray::number(line) + '\n';
    }
    ASSERT_TRUE(this->arrives([&] { this->rig.copyText(text); }));
    EXPECT_TRUE(this->pasteboard.string() == text);
}

TYPED_TEST_P(PasteboardContract, AnImageFromAnotherProgramArrivesAsItsBytes) {
    const auto png = this->encodedImage("PNG");
    ASSERT_TRUE(this->arrives([&] { this->rig.copyImage(ImageType::Png, png); }));
    EXPECT_EQ(this->pasteboard.data(ImageType::Png), png);

    const auto tiff = this->encodedImage("TIFF");
    ASSERT_TRUE(this->arrives([&] { this->rig.copyImage(ImageType::Tiff, tiff); }));
    EXPECT_EQ(this->pasteboard.data(ImageType::Tiff), tiff);
}

TYPED_TEST_P(PasteboardContract, AnImageArrivesAlsoWhenATextComesWithIt) {
    const auto png = this->encodedImage("PNG");
    ASSERT_TRUE(this->arrives([&] { this->rig.copyImageWithText(ImageType::Png, png, "https://zamber.example/"); }));
    EXPECT_EQ(this->pasteboard.data(ImageType::Png), png);
}

TYPED_TEST_P(PasteboardContract, WhatIsNeitherTextNorImageMovesTheCountAndLeavesNothing) {
    ASSERT_TRUE(this->arrives([&] { this->rig.copyText("before"); }));
    ASSERT_TRUE(this->arrives([&] { this->rig.copyNothing(); }));
    EXPECT_EQ(this->pasteboard.string().value_or(QByteArray()), QByteArray());
    EXPECT_EQ(this->pasteboard.data(ImageType::Tiff), std::nullopt);
    EXPECT_EQ(this->pasteboard.data(ImageType::Png), std::nullopt);
}

TYPED_TEST_P(PasteboardContract, ATextOfOursIsThereAtOnceAndOthersPasteIt) {
    const QByteArray text = "ours: é 🙂\n";
    const int before = this->pasteboard.changeCount();
    this->pasteboard.clearContents();
    this->pasteboard.setString(text);
    EXPECT_NE(this->pasteboard.changeCount(), before);
    EXPECT_EQ(this->pasteboard.string(), text);
    EXPECT_EQ(this->rig.pastedText(), text);
    EXPECT_EQ(this->rig.pastedImage(ImageType::Tiff), std::nullopt);
}

TYPED_TEST_P(PasteboardContract, AnImageOfOursIsThereAtOnceAndOthersPasteIt) {
    const auto tiff = this->encodedImage("TIFF");
    const int before = this->pasteboard.changeCount();
    this->pasteboard.clearContents();
    this->pasteboard.setData(ImageType::Tiff, tiff);
    EXPECT_NE(this->pasteboard.changeCount(), before);
    EXPECT_EQ(this->pasteboard.data(ImageType::Tiff), tiff);
    EXPECT_EQ(this->pasteboard.string(), std::nullopt);
    EXPECT_EQ(this->rig.pastedImage(ImageType::Tiff), tiff);
    EXPECT_EQ(this->rig.pastedText(), std::nullopt);
}

TYPED_TEST_P(PasteboardContract, AWriteWinsOverACopyThatIsOlderAndStillOnItsWay) {
    this->rig.copyText("theirs");
    this->pasteboard.clearContents();
    this->pasteboard.setString("ours");
    this->rig.settle();
    EXPECT_EQ(this->rig.pastedText(), "ours");
    EXPECT_EQ(this->pasteboard.string(), "ours");
}

TYPED_TEST_P(PasteboardContract, OurOwnWriteMovesTheCountInsideTheCallAndNotLater) {
    this->pasteboard.clearContents();
    this->pasteboard.setString("ours");
    const int count = this->pasteboard.changeCount();
    this->rig.settle();
    EXPECT_EQ(this->pasteboard.changeCount(), count);
    EXPECT_EQ(this->pasteboard.string(), "ours");
}

TYPED_TEST_P(PasteboardContract, ClearingMovesTheCountAndLeavesNothing) {
    ASSERT_TRUE(this->arrives([&] { this->rig.copyText("theirs"); }));
    const int before = this->pasteboard.changeCount();
    this->pasteboard.clearContents();
    EXPECT_NE(this->pasteboard.changeCount(), before);
    EXPECT_EQ(this->pasteboard.string(), std::nullopt);
    EXPECT_EQ(this->pasteboard.data(ImageType::Tiff), std::nullopt);
    EXPECT_EQ(this->pasteboard.data(ImageType::Png), std::nullopt);
}

TYPED_TEST_P(PasteboardContract, ACopyElsewhereReplacesWhatWeWrote) {
    this->pasteboard.clearContents();
    this->pasteboard.setString("ours");
    this->rig.settle();
    ASSERT_TRUE(this->arrives([&] { this->rig.copyText("theirs"); }));
    EXPECT_EQ(this->pasteboard.string(), "theirs");
}

REGISTER_TYPED_TEST_SUITE_P(PasteboardContract, ATextFromAnotherProgramArrives,
                            TheSameTextCopiedTwiceMovesTheCountTwice, ReadingMovesNothing,
                            ATextOfSeveralMegabytesArrivesWhole, AnImageFromAnotherProgramArrivesAsItsBytes,
                            AnImageArrivesAlsoWhenATextComesWithIt,
                            WhatIsNeitherTextNorImageMovesTheCountAndLeavesNothing,
                            ATextOfOursIsThereAtOnceAndOthersPasteIt, AnImageOfOursIsThereAtOnceAndOthersPasteIt,
                            AWriteWinsOverACopyThatIsOlderAndStillOnItsWay,
                            OurOwnWriteMovesTheCountInsideTheCallAndNotLater, ClearingMovesTheCountAndLeavesNothing,
                            ACopyElsewhereReplacesWhatWeWrote);

} // namespace zamber
