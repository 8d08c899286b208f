// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/SensitiveContent.h"

#include "text/CodePoints.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <random>
#include <string>

namespace zamber::clipboard {

namespace {

const std::string MARKERS[] = {"password",       "passwd",     "pwd",     "api_key",     "apikey",
                               "api-key",        "secret",     "token",   "sk-",         "sk_live_",
                               "sk_test_",       "ghp_",       "gho_",    "github_pat_", "Bearer ",
                               "Authorization:", "-----BEGIN", "ssh-rsa", "ssh-ed25519"};

std::string lowerCased(const std::string& text) {
    std::string result;
    icu::UnicodeString::fromUTF8(text).toLower(icu::Locale::getRoot()).toUTF8String(result);
    return result;
}

/// The rule word for word: lower-case everything, then look for each marker.
bool expected(const std::string& text) {
    const auto lower = lowerCased(text);
    return std::ranges::any_of(MARKERS, [&](const auto& marker) { return lower.contains(lowerCased(marker)); });
}

std::string character(char32_t codePoint) {
    QByteArray text;
    text::appendCodePoint(text, codePoint);
    return text.toStdString();
}

TEST(SensitiveContent, EveryMarkerIsFoundAloneAndInsideAndInAnyCase) {
    for (const auto& marker : MARKERS) {
        EXPECT_TRUE(looksSensitive(marker)) << marker;
        EXPECT_TRUE(looksSensitive("é\nx" + marker + "y")) << marker;
        EXPECT_TRUE(looksSensitive(lowerCased(marker))) << marker;
        auto upper = marker;
        std::ranges::transform(upper, upper.begin(), [](char c) { return c >= 'a' && c <= 'z' ? c - 32 : c; });
        EXPECT_TRUE(looksSensitive(upper)) << upper;
        EXPECT_FALSE(looksSensitive(marker.substr(0, marker.size() - 1))) << marker;
        if (marker != "sk-" && marker != "-----BEGIN") {
            EXPECT_EQ(looksSensitive(marker.substr(1)), expected(marker.substr(1))) << marker;
        }
    }
}

TEST(SensitiveContent, PasswordWithACapitalIsSensitiveAndPassWordIsNot) {
    EXPECT_TRUE(looksSensitive("My Password is good"));
    EXPECT_FALSE(looksSensitive("pass word"));
    EXPECT_FALSE(looksSensitive("pass\nword"));
}

TEST(SensitiveContent, AuthorizationWithAColonIsSensitiveInAnyCase) {
    EXPECT_TRUE(looksSensitive("Authorization: Basic"));
    EXPECT_TRUE(looksSensitive("AUTHORIZATION:x"));
    EXPECT_TRUE(looksSensitive("authorization:"));
    EXPECT_FALSE(looksSensitive("Authorization is given"));
}

TEST(SensitiveContent, BearerAtTheVeryEndIsNotSensitive) {
    EXPECT_FALSE(looksSensitive("the Bearer"));
    EXPECT_FALSE(looksSensitive("Bearer\n"));
    EXPECT_TRUE(looksSensitive("bearer of news"));
    EXPECT_TRUE(looksSensitive("BEARER "));
}

TEST(SensitiveContent, PwdAndRiskFreeAreSensitive) {
    EXPECT_TRUE(looksSensitive("cd /tmp && pwd"));
    EXPECT_TRUE(looksSensitive("risk-free"));
    EXPECT_TRUE(looksSensitive("task-list"));
    EXPECT_TRUE(looksSensitive("desk-top"));
    EXPECT_TRUE(looksSensitive("tokens"));
}

TEST(SensitiveContent, ALongRandomWordIsNotSensitive) {
    EXPECT_FALSE(looksSensitive("dGhpcyBpcyBub3QgYSBzZWNyZXQ9Zm9vYmFyMTIzNDU2Nzg5MA"));
    EXPECT_FALSE(looksSensitive(""));
}

TEST(SensitiveContent, AMarkerAfterAFalseStartIsFound) {
    EXPECT_TRUE(looksSensitive("papassword"));
    EXPECT_TRUE(looksSensitive("passpasswd"));
    EXPECT_TRUE(looksSensitive("sk_livsk_test_"));
    EXPECT_TRUE(looksSensitive("------BEGIN"));
    EXPECT_TRUE(looksSensitive("githugho_"));
    EXPECT_TRUE(looksSensitive("ssh-rssh-rsa"));
    EXPECT_TRUE(looksSensitive("api_apikey"));
}

TEST(SensitiveContent, LowerCasesAsUnicodeDoes) {
    EXPECT_TRUE(looksSensitive("to\u212Aen")); // the Kelvin sign
    EXPECT_TRUE(looksSensitive("AP\u0049_\u212AEY"));
    EXPECT_FALSE(looksSensitive("apİkey"));
    EXPECT_FALSE(looksSensitive("ſecret"));
    EXPECT_FALSE(looksSensitive("to\u212Ben"));
}

TEST(SensitiveContent, NoOtherCharacterBecomesAsciiInLowerCase) {
    for (char32_t c = 0x80; c <= 0x10FFFF; ++c) {
        if (U_IS_SURROGATE(c) || c == 0x212A) {
            continue;
        }
        const auto lower = lowerCased(character(c));
        const bool hasAscii = std::ranges::any_of(lower, [](char byte) { return (byte & 0x80) == 0; });
        // İ becomes an i with a dot above, which no marker has.
        ASSERT_EQ(hasAscii, c == 0x130) << std::hex << static_cast<unsigned>(c);
        ASSERT_FALSE(looksSensitive("s" + character(c) + "-"));
    }
    EXPECT_EQ(lowerCased(character(0x130)), "i\u0307");
}

TEST(SensitiveContent, AgreesWithTheRuleOnRandomTexts) {
    std::mt19937 random(20260102);
    const std::string fillers[] = {"", "s", "-", "\u212A", "İ", " ", "\n", "P", "é", "\xE2\x84"};
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (auto parts = random() % 5; parts > 0; --parts) {
            const auto& marker = MARKERS[random() % std::size(MARKERS)];
            auto part = marker.substr(random() % marker.size() / 2, marker.size() - random() % 3);
            for (auto& c : part) {
                if (random() % 4 == 0 && c >= 'a' && c <= 'z') {
                    c = static_cast<char>(c - 32);
                }
            }
            text += part + fillers[random() % std::size(fillers)];
        }
        ASSERT_EQ(looksSensitive(text), expected(text)) << text;
        found += looksSensitive(text) ? 1 : 0;
    }
    EXPECT_GT(found, 1000);
    EXPECT_LT(found, 19000);
}

} // namespace

} // namespace zamber::clipboard
