// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"

#include <gtest/gtest.h>

namespace zamber::clipboard {

namespace {

QByteArray asBase64(const QByteArray& bytes) {
    const auto length = base64Length(static_cast<std::size_t>(bytes.size()));
    QByteArray output(static_cast<qsizetype>(length) + 1, '?');
    encodeBase64(output.data(), {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    output.chop(1);
    return output;
}

TEST(Base64, EncodesTheVectorsOfTheStandard) {
    const std::pair<const char*, const char*> vectors[] = {
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="},
        {"foobar", "Zm9vYmFy"},
    };
    for (const auto& [bytes, text] : vectors) {
        EXPECT_EQ(asBase64(bytes), text);
        EXPECT_EQ(fromBase64(text), bytes);
    }
}

TEST(Base64, EveryByteInEveryPlaceComesBack) {
    for (int length = 0; length < 8; ++length) {
        for (int value = 0; value < 256; ++value) {
            QByteArray bytes(length, static_cast<char>(value));
            if (length > 1) {
                bytes[length / 2] = static_cast<char>(255 - value);
            }
            const auto text = asBase64(bytes);
            EXPECT_EQ(text, bytes.toBase64());
            ASSERT_EQ(fromBase64(text.toStdString()), bytes);
        }
    }
}

TEST(Base64, AnythingStrayMakesItInvalid) {
    for (const auto* text :
         {"Zm9v Zm9v", "Zm9v\n", "\nZm9v", "Zm9vZm9\n", " ", "Zm-v", "Zm_v", "Zm9\xC3", "Zm.v", "\"Zm9"}) {
        EXPECT_EQ(fromBase64(text), std::nullopt) << text;
    }
    EXPECT_EQ(fromBase64(std::string_view("Zm9\0", 4)), std::nullopt);
}

TEST(Base64, PaddingStandsWhereItBelongsOrItIsInvalid) {
    for (const auto* text : {"Z", "Zg", "Zg=", "Zm8", "Z===", "====", "=", "==", "=Zm9", "Z=m9", "Zg==Zg==", "Zm8=Zm9v",
                             "Zm9v=", "Zm9v==", "Zm9v===", "Zm9v====", "Zg=v"}) {
        EXPECT_EQ(fromBase64(text), std::nullopt) << text;
    }
}

TEST(Base64, SurplusBitsOfTheLastCharacterAreNoStrayCharacters) {
    EXPECT_EQ(fromBase64("Zh=="), "f");
    EXPECT_EQ(fromBase64("Zm9="), "fo");
}

} // namespace

} // namespace zamber::clipboard
