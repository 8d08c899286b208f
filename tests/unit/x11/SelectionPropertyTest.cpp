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

/// As a server would number them, above the names that every server has.
xcb_atom_t atom(Atom name) {
    return 1000 + static_cast<xcb_atom_t>(name);
}

QByteArray bytesOf(std::initializer_list<std::uint32_t> numbers) {
    return {reinterpret_cast<const char*>(numbers.begin()),
            static_cast<qsizetype>(numbers.size() * sizeof(std::uint32_t))};
}

Property atoms(std::initializer_list<std::uint32_t> numbers) {
    return {.type = XCB_ATOM_ATOM, .format = 32, .bytes = bytesOf(numbers)};
}

Property bytes(xcb_atom_t type, const QByteArray& bytes) {
    return {.type = type, .format = 8, .bytes = bytes};
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
    EXPECT_THAT(offeredTargets(atoms({}), atom), Optional(IsEmpty()));
    EXPECT_THAT(readableTargets({}, atom), IsEmpty());
}

TEST(SelectionProperty, TargetsComeAsAtomsOrUnderTheirOwnName) {
    Property list = atoms({5});
    EXPECT_THAT(offeredTargets(list, atom), Optional(ElementsAre(5U)));
    list.type = atom(Atom::Targets);
    EXPECT_THAT(offeredTargets(list, atom), Optional(ElementsAre(5U)));
    for (const xcb_atom_t type : {xcb_atom_t{XCB_ATOM_INTEGER}, xcb_atom_t{XCB_ATOM_NONE}, atom(Atom::Utf8String)}) {
        list.type = type;
        EXPECT_EQ(offeredTargets(list, atom), std::nullopt);
    }
    EXPECT_EQ(offeredTargets(bytes(XCB_ATOM_ATOM, bytesOf({5})), atom), std::nullopt);
}

TEST(SelectionProperty, ImagesAreReadBeforeTextsAndExactTypesBeforeVagueOnesHoweverOftenTheyAreOffered) {
    const auto offered = {atom(Atom::Text),
                          XCB_ATOM_STRING + 0U,
                          atom(Atom::ImageTiff),
                          atom(Atom::Utf8String),
                          atom(Atom::Targets),
                          atom(Atom::ImagePng),
                          atom(Atom::TextPlain),
                          atom(Atom::ImagePng),
                          atom(Atom::Incr),
                          atom(Atom::ImageXMsBmp),
                          0U,
                          0xffffffffU};
    EXPECT_THAT(readableTargets(offered, atom),
                ElementsAre(atom(Atom::ImagePng), atom(Atom::ImageTiff), atom(Atom::ImageXMsBmp),
                            atom(Atom::Utf8String), XCB_ATOM_STRING + 0U, atom(Atom::TextPlain), atom(Atom::Text)));
}

TEST(SelectionProperty, OnlyTheVeryWordIsASecret) {
    EXPECT_TRUE(saysSecret(bytes(XCB_ATOM_STRING, "secret")));
    for (const auto& hint : {QByteArray(), QByteArray("Secret"), QByteArray("secret\n"), QByteArray("secret\0", 7),
                             QByteArray("public")}) {
        EXPECT_FALSE(saysSecret(bytes(XCB_ATOM_STRING, hint))) << hint.toStdString();
    }
    EXPECT_FALSE(saysSecret({.type = XCB_ATOM_STRING, .format = 32, .bytes = "secret"}));
}

TEST(SelectionProperty, ATextIsReadByTheEncodingThatItsTypeNames) {
    const QByteArray both = "\xC3\xA9";
    EXPECT_EQ(textOf(bytes(XCB_ATOM_STRING, both), atom), "Ã©");
    for (const auto name : {Atom::Utf8String, Atom::TextPlainUtf8, Atom::TextPlainUtf8Capitals, Atom::TextPlain}) {
        EXPECT_EQ(textOf(bytes(atom(name), both), atom), "é");
        EXPECT_EQ(textOf(bytes(atom(name), "\xE9!"), atom), "\uFFFD!");
    }
    for (const xcb_atom_t type : {atom(Atom::Text), atom(Atom::ImagePng), xcb_atom_t{XCB_ATOM_NONE}}) {
        EXPECT_EQ(textOf(bytes(type, both), atom), std::nullopt);
        EXPECT_EQ(textOf(bytes(type, ""), atom), "");
    }
}

TEST(SelectionProperty, NoMoreIsReservedThanIsSafeWhateverIsAnnounced) {
    EXPECT_EQ(announcedSize(atoms({1000, 5})), 1000);
    EXPECT_EQ(announcedSize(atoms({0xffffffff})), qint64{256} << 20);
    EXPECT_EQ(announcedSize(atoms({})), 0);
    EXPECT_EQ(announcedSize(bytes(atom(Atom::Incr), "1000")), 0);
}

} // namespace

} // namespace zamber::x11
