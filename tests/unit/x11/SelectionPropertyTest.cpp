// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SelectionProperty.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>

namespace zamber::x11 {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

constexpr xcb_atom_t TARGETS = 1000;

QByteArray bytesOf(std::initializer_list<std::uint32_t> numbers) {
    return {reinterpret_cast<const char*>(numbers.begin()),
            static_cast<qsizetype>(numbers.size() * sizeof(std::uint32_t))};
}

Property atoms(std::initializer_list<std::uint32_t> numbers) {
    return {.type = XCB_ATOM_ATOM, .format = 32, .bytes = bytesOf(numbers)};
}

TEST(SelectionProperty, NumbersAreElementsOf32BitsAndTheRestIsPassedOver) {
    EXPECT_THAT(numbersOf(atoms({1, 0xffffffff})), ElementsAre(1U, 0xffffffffU));
    for (qsizetype length = 0; length < 4; ++length) {
        const Property cut{.type = XCB_ATOM_ATOM, .format = 32, .bytes = bytesOf({7, 8}).first(4 + length)};
        EXPECT_THAT(numbersOf(cut), ElementsAre(7U));
    }
    EXPECT_THAT(numbersOf(atoms({})), IsEmpty());
    for (const int format : {0, 8, 16, 64, -32}) {
        EXPECT_THAT(numbersOf({.type = XCB_ATOM_ATOM, .format = format, .bytes = bytesOf({1})}), IsEmpty());
    }
}

TEST(SelectionProperty, AnEmptyListOfTargetsIsAListAndOffersNothing) {
    EXPECT_THAT(offeredTargets(atoms({}), TARGETS), Optional(IsEmpty()));
}

TEST(SelectionProperty, TargetsComeAsAtomsOrUnderTheirOwnName) {
    Property list = atoms({5});
    EXPECT_THAT(offeredTargets(list, TARGETS), Optional(ElementsAre(5U)));
    list.type = TARGETS;
    EXPECT_THAT(offeredTargets(list, TARGETS), Optional(ElementsAre(5U)));
    for (const xcb_atom_t type : {xcb_atom_t{XCB_ATOM_INTEGER}, xcb_atom_t{XCB_ATOM_NONE}, xcb_atom_t{1001}}) {
        list.type = type;
        EXPECT_EQ(offeredTargets(list, TARGETS), std::nullopt);
    }
    EXPECT_EQ(offeredTargets({.type = XCB_ATOM_ATOM, .format = 8, .bytes = bytesOf({5})}, TARGETS), std::nullopt);
}

TEST(SelectionProperty, OfALongListOnlyTheBeginningIsLookedAt) {
    Property list = atoms({});
    list.bytes = QByteArray(4 * 4'000'000, 'x');
    EXPECT_THAT(offeredTargets(list, TARGETS), Optional(SizeIs(MOST_TARGETS)));
}

} // namespace

} // namespace zamber::x11
