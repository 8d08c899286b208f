// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/PlasmaCombinations.h"

#include "platform/wayland/KeymapLookup.h"

#include <QByteArrayList>
#include <QKeySequence>

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace zamber::wayland {

namespace {

constexpr HotKeyModifiers COMMAND_SHIFT{.command = true, .shift = true};
constexpr std::uint32_t V = 47;
constexpr std::uint32_t PERIOD = 52;
constexpr std::uint32_t INSERT = 110;

struct Case {
    const char* layouts;
    const char* v; // as Qt writes combinations
    const char* two;
    const char* three;
};

void PrintTo(const Case& row, std::ostream* out) {
    *out << row.layouts;
}

QByteArray written(const QList<int>& combinations) {
    QByteArrayList texts;
    for (const int combination : combinations) {
        texts.append(QKeySequence(combination).toString(QKeySequence::PortableText).toUtf8());
    }
    return texts.join(' ');
}

} // namespace

class PlasmaCombinationsTest : public testing::TestWithParam<Case> {};

TEST_P(PlasmaCombinationsTest, AKeyIsWhatItGivesInEachLayout) {
    const Keymap keymap = keymapOf(GetParam().layouts);
    ASSERT_TRUE(keymap);
    EXPECT_EQ(written(plasmaCombinations(keymap.get(), PhysicalKey::V, COMMAND_SHIFT)), GetParam().v);
    EXPECT_EQ(written(plasmaCombinations(keymap.get(), PhysicalKey::Digit2, COMMAND_SHIFT)), GetParam().two);
    EXPECT_EQ(written(plasmaCombinations(keymap.get(), PhysicalKey::Digit3, COMMAND_SHIFT)), GetParam().three);
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, PlasmaCombinationsTest,
    testing::Values(Case{"us", "Meta+Shift+V", "Meta+@", "Meta+#"}, Case{"ru", "Meta+Shift+М", "Meta+\"", "Meta+№"},
                    Case{"us,ru", "Meta+Shift+V Meta+Shift+М", "Meta+@ Meta+\"", "Meta+# Meta+№"},
                    Case{"us,us", "Meta+Shift+V", "Meta+@", "Meta+#"}, Case{"fr", "Meta+Shift+V", "Meta+2", "Meta+3"},
                    Case{"de", "Meta+Shift+V", "Meta+\"", "Meta+§"}, Case{"ir", "Meta+\u0670", "Meta+٬", "Meta+٫"}));

TEST(PlasmaCombinations, WithoutAKeymapTheyAreThoseOfTheUsLayout) {
    EXPECT_EQ(written(plasmaCombinations(nullptr, PhysicalKey::V, COMMAND_SHIFT)), "Meta+Shift+V");
}

TEST(PlasmaCombinations, WithoutShiftADigitIsADigit) {
    const Keymap keymap = keymapOf("us");
    EXPECT_EQ(written(plasmaCombinations(keymap.get(), PhysicalKey::Digit2, {.command = true, .shift = false})),
              "Meta+2");
}

TEST(KeyFor, TheLayoutInUseCountsFirst) {
    const Keymap keymap = keymapOf("us,us(dvorak)");
    ASSERT_TRUE(keymap);
    EXPECT_EQ(keyFor(keymap.get(), 0, XKB_KEY_v), V);
    EXPECT_EQ(keyFor(keymap.get(), 1, XKB_KEY_v), PERIOD);
}

TEST(KeyFor, AnotherLayoutIsTheSecondChoice) {
    const Keymap keymap = keymapOf("us,ru");
    EXPECT_EQ(keyFor(keymap.get(), 1, XKB_KEY_v), V);
}

TEST(KeyFor, ALetterThatNoLayoutHasIsOnNoKey) {
    const Keymap keymap = keymapOf("ru");
    EXPECT_FALSE(keyFor(keymap.get(), 0, XKB_KEY_v));
}

TEST(KeyFor, AKeyThatIsTheSameInAllLayoutsIsFoundInEach) {
    const Keymap keymap = keymapOf("us,ru");
    EXPECT_EQ(keyFor(keymap.get(), 1, XKB_KEY_Insert), INSERT);
}

} // namespace zamber::wayland
