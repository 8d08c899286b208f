// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/SearchField.h"

#include "tests/fakes/FakeSymbols.h"
#include "tests/support/Pictures.h"
#include "ui/Palette.h"

#include <QAbstractButton>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

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

    /// What an input method has done: it has written the one text, and shows the other, which it goes on composing.
    void receive(const QString& written, const QString& composed) {
        QInputMethodEvent event(composed, {});
        event.setCommitString(written);
        QCoreApplication::sendEvent(field, &event);
    }

    /// The caret stands behind what is composed.
    int caret() const { return field->inputMethodQuery(Qt::ImCursorRectangle).toRect().left(); }

    int colours() const { return colouredPixels(field->grab().toImage()); }

    FakeSymbols symbols;
    SearchField search{symbols, u"Search clipboard…"_s};
    QLineEdit* field = search.findChild<QLineEdit*>();
};

} // namespace

TEST_F(SearchFieldTest, TheCaretStandsBesideThePlaceholdersFirstLetter) {
    constexpr int roomBesideTheCaret = 5; // which Qt adds on each side
    const int place = caret() + roomBesideTheCaret;
    field->clearFocus();
    const QImage drawn = field->grab().toImage();
    EXPECT_GE(inkedRange(drawn, drawn.rect(), Qt::Horizontal).first, place + 2);
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
    field->insert(u"1"_s);
    EXPECT_EQ(colours(), 0);
    field->insert(u"\uFE0F\u20E3"_s);
    EXPECT_GT(colours(), 20);
    field->backspace();
    field->insert(u"2"_s);
    EXPECT_EQ(colours(), 0) << field->text().toStdString();
}

TEST_F(SearchFieldTest, ASyllableIsWrittenWhileTheNextIsComposed) {
    receive({}, u"가"_s);
    EXPECT_EQ(search.text(), QString());
    receive(u"가"_s, u"나"_s);
    EXPECT_EQ(search.text(), u"가"_s);
    const int behindBoth = caret();
    receive({}, {});
    EXPECT_EQ(search.text(), u"가"_s);
    EXPECT_GT(behindBoth, caret() + 5) << "the second was seen while it was composed";
}

TEST_F(SearchFieldTest, WhatIsComposedReplacesWhatIsSelected) {
    const int empty = caret();
    search.setText(u"former"_s);
    search.selectAll();
    receive({}, u"n"_s);
    EXPECT_EQ(search.text(), QString());
    EXPECT_GT(caret(), empty);
    receive(u"n"_s, {});
    EXPECT_EQ(search.text(), u"n"_s);
}

TEST_F(SearchFieldTest, ItsEmojiAreColouredWhileAnInputMethodComposes) {
    search.setText(u"😀"_s);
    receive({}, u"ni"_s);
    EXPECT_GT(colours(), 20) << "behind it";
    field->setCursorPosition(0);
    receive({}, u"nih"_s);
    EXPECT_GT(colours(), 20) << "before it";
    receive({}, {});
    search.setText({});
    ASSERT_EQ(colours(), 0);
    receive({}, u"😀"_s);
    EXPECT_GT(colours(), 20) << "which composes an emoji itself";
    receive({}, {});
    EXPECT_EQ(colours(), 0);
    EXPECT_EQ(search.text(), QString());
}

TEST_F(SearchFieldTest, AnInputMethodSaysHowWhatItComposesLooks) {
    QTextCharFormat marked;
    marked.setBackground(Qt::red);
    QInputMethodEvent composing(u"nihao"_s,
                                {{QInputMethodEvent::Cursor, 2, 1, {}}, {QInputMethodEvent::TextFormat, 0, 5, marked}});
    search.setText(u"former"_s);
    search.selectAll();
    QCoreApplication::sendEvent(field, &composing);
    EXPECT_GT(colours(), 100);
    const int inTheMiddle = caret();
    receive({}, u"nihao"_s);
    EXPECT_LT(inTheMiddle, caret());
    EXPECT_EQ(colours(), 0);
}

TEST_F(SearchFieldTest, WhatIsComposedWhenItIsHiddenIsForgotten) {
    receive(u"a"_s, {});
    const int behindTheText = caret();
    receive({}, u"ni"_s);
    search.hide();
    receive(u"ni"_s, {}); // as Qt asks an input method to do while a window is being hidden
    search.show();
    EXPECT_EQ(search.text(), u"a"_s);
    EXPECT_EQ(caret(), behindTheText);
}

TEST_F(SearchFieldTest, WhatIsComposedWhenAnotherWindowGetsTheKeyboardIsForgotten) {
    search.activateWindow();
    search.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return field->hasFocus(); }));
    receive(u"a"_s, {});
    const int behindTheText = caret();
    receive({}, u"ni"_s);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.isActiveWindow(); }));
    EXPECT_EQ(search.text(), u"a"_s);
    EXPECT_EQ(caret(), behindTheText);
}

} // namespace zamber::ui
