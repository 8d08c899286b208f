// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>
#include <limits>

namespace zamber {

/// What the suite needs around preferences that are empty at first:
/// - `writeFromOutside`: another process stores that text under the key;
/// - `waitUntil`: lets the main loop run until the condition holds; false when it gives up;
/// - `settle`: lets the main loop run until everything under way has surely arrived.
template <class Rig>
concept UserDefaultsRig =
    std::default_initializable<Rig> && requires(Rig rig, QString text, std::function<bool()> condition) {
        { rig.defaults() } -> std::same_as<UserDefaults&>;
        rig.writeFromOutside(text, text);
        { rig.waitUntil(condition) } -> std::same_as<bool>;
        rig.settle();
    };

template <UserDefaultsRig Rig>
class UserDefaultsContract : public testing::Test {
protected:
    Rig rig;
    UserDefaults& defaults = rig.defaults();
    const QString key = QStringLiteral("popoverSize");
    int told = 0;

    UserDefaults::ObserverToken count(const QString& observedKey) {
        return defaults.addObserver(observedKey, [this] { ++told; });
    }
};

TYPED_TEST_SUITE_P(UserDefaultsContract);

TYPED_TEST_P(UserDefaultsContract, AKeyIsAbsentUntilItIsWritten) {
    EXPECT_EQ(this->defaults.string(this->key), std::nullopt);
    EXPECT_EQ(this->defaults.integer(this->key), std::nullopt);
    EXPECT_EQ(this->defaults.boolean(this->key), std::nullopt);
    this->defaults.setString(QStringLiteral("another"), QStringLiteral("x"));
    EXPECT_EQ(this->defaults.string(this->key), std::nullopt);
}

TYPED_TEST_P(UserDefaultsContract, TextsComeBackAsTheyWere) {
    for (const auto* text : {"normal", "", " two  words ", "a, b; c=d", "\"quoted\" \\ back", "⌘⇧V é 🙂", "@at", "true",
                             "false", "1.2.3", "line\nbreak"}) {
        this->defaults.setString(this->key, QString::fromUtf8(text));
        EXPECT_EQ(this->defaults.string(this->key), QString::fromUtf8(text));
    }
}

TYPED_TEST_P(UserDefaultsContract, ANumberReadsAsEveryType) {
    for (const int number : {0, 7, -3, 100, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        this->defaults.setInteger(this->key, number);
        EXPECT_EQ(this->defaults.integer(this->key), number);
        EXPECT_EQ(this->defaults.string(this->key), QString::number(number));
        EXPECT_EQ(this->defaults.boolean(this->key), number != 0);
    }
}

TYPED_TEST_P(UserDefaultsContract, ATruthValueReadsAsEveryType) {
    this->defaults.setBoolean(this->key, true);
    EXPECT_EQ(this->defaults.boolean(this->key), true);
    EXPECT_EQ(this->defaults.integer(this->key), 1);
    EXPECT_EQ(this->defaults.string(this->key), QStringLiteral("1"));

    this->defaults.setBoolean(this->key, false);
    EXPECT_EQ(this->defaults.boolean(this->key), false);
    EXPECT_EQ(this->defaults.integer(this->key), 0);
    EXPECT_EQ(this->defaults.string(this->key), QStringLiteral("0"));
}

TYPED_TEST_P(UserDefaultsContract, ATextReadsAsANumberByItsLeadingDigits) {
    const std::pair<const char*, int> rows[] = {{"20", 20}, {"  20 entries", 20}, {"-5", -5},  {"+5", 5},  {"7.9", 7},
                                                {"", 0},    {"many", 0},          {"0x10", 0}, {"1e3", 1}, {"- 5", 0}};
    for (const auto& [text, number] : rows) {
        this->defaults.setString(this->key, QString::fromUtf8(text));
        EXPECT_EQ(this->defaults.integer(this->key), number) << text;
    }
}

TYPED_TEST_P(UserDefaultsContract, ATextReadsAsATruthValueByItsStart) {
    const std::pair<const char*, bool> rows[] = {{"YES", true}, {"yes", true},   {"True", true},   {"t", true},
                                                 {"1", true},   {" +007", true}, {"-2", true},     {"9x", true},
                                                 {"NO", false}, {"no", false},   {"0", false},     {"000", false},
                                                 {"", false},   {"on", false},   {"False", false}, {"0.5", false}};
    for (const auto& [text, truth] : rows) {
        this->defaults.setString(this->key, QString::fromUtf8(text));
        EXPECT_EQ(this->defaults.boolean(this->key), truth) << text;
    }
}

TYPED_TEST_P(UserDefaultsContract, AnObserverIsToldOncePerChangeAndBeforeTheSetterReturns) {
    this->count(this->key);
    this->defaults.setString(this->key, QStringLiteral("large"));
    EXPECT_EQ(this->told, 1);
    this->rig.settle();
    EXPECT_EQ(this->told, 1);
    this->defaults.setString(this->key, QStringLiteral("compact"));
    EXPECT_EQ(this->told, 2);
    this->rig.settle();
    EXPECT_EQ(this->told, 2);
}

TYPED_TEST_P(UserDefaultsContract, AnObserverSeesTheNewValue) {
    QString seen;
    this->defaults.addObserver(this->key, [&] { seen = this->defaults.string(this->key).value_or(QString()); });
    this->defaults.setString(this->key, QStringLiteral("large"));
    EXPECT_EQ(seen, QStringLiteral("large"));
}

TYPED_TEST_P(UserDefaultsContract, TheSameValueAgainIsNoChange) {
    this->defaults.setString(this->key, QStringLiteral("large"));
    this->count(this->key);
    this->defaults.setString(this->key, QStringLiteral("large"));
    this->rig.settle();
    EXPECT_EQ(this->told, 0);
}

TYPED_TEST_P(UserDefaultsContract, AnObserverHearsOfItsKeyAlone) {
    this->count(QStringLiteral("appTheme"));
    this->defaults.setString(this->key, QStringLiteral("large"));
    this->rig.settle();
    EXPECT_EQ(this->told, 0);
}

TYPED_TEST_P(UserDefaultsContract, ARemovedObserverHearsNothingAlsoWhenAnotherOneRemovesIt) {
    const auto removed = this->count(this->key);
    this->defaults.removeObserver(removed);
    UserDefaults::ObserverToken second;
    this->defaults.addObserver(this->key, [&] { this->defaults.removeObserver(second); });
    second = this->count(this->key);
    this->defaults.setString(this->key, QStringLiteral("large"));
    EXPECT_EQ(this->told, 0);
    this->defaults.removeObserver(UserDefaults::ObserverToken{});
}

TYPED_TEST_P(UserDefaultsContract, AnObserverMayRemoveItself) {
    UserDefaults::ObserverToken token;
    token = this->defaults.addObserver(this->key, [&] {
        this->defaults.removeObserver(token);
        ++this->told;
    });
    this->defaults.setString(this->key, QStringLiteral("large"));
    this->defaults.setString(this->key, QStringLiteral("compact"));
    EXPECT_EQ(this->told, 1);
}

TYPED_TEST_P(UserDefaultsContract, AnotherProcessChangeIsSeenAndTold) {
    this->count(this->key);
    this->rig.writeFromOutside(this->key, QStringLiteral("large")); // the very first setting of all
    ASSERT_TRUE(this->rig.waitUntil([&] { return this->told == 1; }));
    EXPECT_EQ(this->defaults.string(this->key), QStringLiteral("large"));

    this->defaults.setString(this->key, QStringLiteral("normal"));
    this->rig.settle();
    this->rig.writeFromOutside(this->key, QStringLiteral("compact"));
    ASSERT_TRUE(this->rig.waitUntil([&] { return this->told == 3; }));
    EXPECT_EQ(this->defaults.string(this->key), QStringLiteral("compact"));
    this->rig.settle();
    EXPECT_EQ(this->told, 3);
}

TYPED_TEST_P(UserDefaultsContract, AnotherProcessChangeOfAnotherKeyIsKeptWhenWeWrite) {
    this->defaults.setInteger(QStringLiteral("maxItems"), 50);
    this->rig.writeFromOutside(QStringLiteral("appTheme"), QStringLiteral("dark"));
    this->defaults.setString(this->key, QStringLiteral("large"));
    this->rig.settle();
    EXPECT_EQ(this->defaults.string(QStringLiteral("appTheme")), QStringLiteral("dark"));
    EXPECT_EQ(this->defaults.integer(QStringLiteral("maxItems")), 50);
    EXPECT_EQ(this->defaults.string(this->key), QStringLiteral("large"));
}

REGISTER_TYPED_TEST_SUITE_P(UserDefaultsContract, AKeyIsAbsentUntilItIsWritten, TextsComeBackAsTheyWere,
                            ANumberReadsAsEveryType, ATruthValueReadsAsEveryType, ATextReadsAsANumberByItsLeadingDigits,
                            ATextReadsAsATruthValueByItsStart, AnObserverIsToldOncePerChangeAndBeforeTheSetterReturns,
                            AnObserverSeesTheNewValue, TheSameValueAgainIsNoChange, AnObserverHearsOfItsKeyAlone,
                            ARemovedObserverHearsNothingAlsoWhenAnotherOneRemovesIt, AnObserverMayRemoveItself,
                            AnotherProcessChangeIsSeenAndTold, AnotherProcessChangeOfAnotherKeyIsKeptWhenWeWrite);

} // namespace zamber
