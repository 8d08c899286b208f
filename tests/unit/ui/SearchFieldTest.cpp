// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/SearchField.h"

#include "tests/fakes/FakeSymbols.h"
#include "tests/support/Pictures.h"
#include "ui/Palette.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace zamber::ui {

using namespace Qt::StringLiterals;

namespace {

class SearchFieldTest : public testing::Test {
protected:
    SearchFieldTest() {
        search.setColors(Palette::light(Qt::gray));
        search.resize(300, 32);
        search.show();
    }

    FakeSymbols symbols;
    SearchField search{symbols, u"Search clipboard…"_s};
    QLineEdit* field = search.findChild<QLineEdit*>();
};

} // namespace

TEST_F(SearchFieldTest, TheCaretStandsBesideThePlaceholdersFirstLetter) {
    constexpr int roomBesideTheCaret = 5; // which Qt adds on each side
    const int caret = field->inputMethodQuery(Qt::ImCursorRectangle).toRect().left() + roomBesideTheCaret;
    field->clearFocus();
    const QImage drawn = field->grab().toImage();
    EXPECT_GE(inkedRange(drawn, drawn.rect(), Qt::Horizontal).first, caret + 2);
}

TEST_F(SearchFieldTest, ItTellsEveryChangeAndItsButtonEmptiesIt) {
    const QSignalSpy changed(&search, &SearchField::textChanged);
    search.setText(u"a"_s);
    search.setText(u"a"_s);
    EXPECT_EQ(changed.count(), 1);
    auto* const clear = search.findChild<QAbstractButton*>();
    ASSERT_TRUE(clear->isVisible());
    clear->click();
    EXPECT_EQ(search.text(), QString());
    EXPECT_FALSE(clear->isVisible());
}

TEST_F(SearchFieldTest, ItsEmojiAreColouredWhileOneTypes) {
    const QSignalSpy changed(&search, &SearchField::textChanged);
    const auto colours = [this] { return colouredPixels(field->grab().toImage()); };
    field->insert(u"☎"_s);
    EXPECT_EQ(colours(), 0);
    field->insert(u"😀"_s);
    EXPECT_GT(colours(), 20);
    field->setCursorPosition(0);
    field->insert(u"ab"_s);
    EXPECT_GT(colours(), 20) << "with the caret before them";
    EXPECT_EQ(field->cursorPosition(), 2);
    EXPECT_EQ(changed.count(), 3) << "nothing but the text's own changes is told";
    field->setCursorPosition(5);
    field->backspace();
    EXPECT_EQ(colours(), 0);
    field->undo();
    EXPECT_EQ(field->text(), u"ab☎😀"_s);
    EXPECT_GT(colours(), 20);
}

TEST_F(SearchFieldTest, AKeyOfAKeycapIsADigitUntilTheCapIsTyped) {
    const auto colours = [this] { return colouredPixels(field->grab().toImage()); };
    field->insert(u"1"_s);
    EXPECT_EQ(colours(), 0);
    field->insert(u"\uFE0F\u20E3"_s);
    EXPECT_GT(colours(), 20);
    field->backspace();
    field->insert(u"2"_s);
    EXPECT_EQ(colours(), 0) << field->text().toStdString();
}

} // namespace zamber::ui
