// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Base64.h"

#include <gtest/gtest.h>

namespace zamber::clipboard {

namespace {

QByteArray encoded(const QByteArray& bytes) {
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
        EXPECT_EQ(encoded(bytes), text);
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
            const auto text = encoded(bytes);
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

TEST(Base64, SlashesMayBeEscapedAndNothingElse) {
    QByteArray bytes;
    for (int i = 0; i < 200'000; ++i) {
        bytes += static_cast<char>(i % 7 == 0 ? 0xFF : i * i);
    }
    for (const qsizetype length : {0, 1, 2, 3, 24'574, 24'575, 24'576, 24'577, 24'578, 24'579, 200'000}) {
        auto text = encoded(bytes.first(length));
        text.replace("/", "\\/");
        EXPECT_EQ(fromSlashEscapedBase64(text.toStdString()), bytes.first(length)) << length;
    }
    EXPECT_EQ(fromSlashEscapedBase64(R"(\/\/4=)"), "\xFF\xFE");
    EXPECT_EQ(fromSlashEscapedBase64("//4="), "\xFF\xFE");
    for (const auto* text :
         {R"(Zm\9v)", R"(Zm9v\)", R"(\)", R"(\\//4=)", R"(\/\/)", R"(\/)", "Zg==Zg==", "Zm9v Zm9v"}) {
        EXPECT_EQ(fromSlashEscapedBase64(text), std::nullopt) << text;
    }
    // Padding in the middle, also where the text is decoded in pieces.
    for (const int before : {32'764, 32'768, 32'772}) {
        EXPECT_EQ(fromSlashEscapedBase64(std::string(before - 4, 'A') + "Zg==" + "Zm9v"), std::nullopt) << before;
    }
}

TEST(Base64, AnEscapedSlashMayStandAnywhereAndAnotherEscapeNowhere) {
    for (std::size_t before = 0; before < 100; ++before) {
        const auto plain = std::string(before, 'A') + "//" + std::string(102 - before, 'B');
        const auto escaped = std::string(before, 'A') + R"(\/\/)" + std::string(102 - before, 'B');
        EXPECT_EQ(fromSlashEscapedBase64(escaped), fromBase64(plain)) << before;
        EXPECT_TRUE(fromSlashEscapedBase64(escaped).has_value());
        // Without their backslashes they would be Base64, but for the last.
        for (const auto* stray : {R"(\nBBB)", R"(\\/BBB)", R"(\/\ABB)", "-BBB"}) {
            EXPECT_EQ(fromSlashEscapedBase64(std::string(before, 'A') + stray + std::string(100 - before, 'B')),
                      std::nullopt);
        }
    }
}

TEST(Base64, SurplusBitsOfTheLastCharacterAreNoStrayCharacters) {
    EXPECT_EQ(fromBase64("Zh=="), "f");
    EXPECT_EQ(fromBase64("Zm9="), "fo");
}

} // namespace

} // namespace zamber::clipboard
