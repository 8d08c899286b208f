// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/TextFieldPaste.h"

#include "tests/fakes/FakePasteboard.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

namespace zamber::freedesktop {

namespace {

class TextFieldPasteTest : public testing::Test {
protected:
    TextFieldPasteTest() { field.show(); }

    void pressPaste() { QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier); }

    QMenu* openMenu() {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), field.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&field, &event);
        return field.findChild<QMenu*>();
    }

    FakePasteboard pasteboard;
    TextFieldPaste paste{pasteboard};
    QLineEdit field;
};

TEST_F(TextFieldPasteTest, TheKeystrokeInsertsWhatThePasteboardHolds) {
    field.setText(QStringLiteral("a selected word"));
    field.setSelection(2, 8);
    pasteboard.copyText("größe 漢字");
    pressPaste();
    EXPECT_EQ(field.text(), QStringLiteral("a größe 漢字 word"));
    QTest::keyClick(&field, Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(field.text(), QStringLiteral("a größe 漢字größe 漢字 word"));
}

TEST_F(TextFieldPasteTest, WithoutATextNothingIsInserted) {
    field.setText(QStringLiteral("kept"));
    pressPaste();
    EXPECT_EQ(field.text(), QStringLiteral("kept"));
}

TEST_F(TextFieldPasteTest, ATextIsCutToWhatTheFieldHolds) {
    field.setMaxLength(5);
    pasteboard.copyText(QByteArray(1 << 20, 'x'));
    pressPaste();
    EXPECT_EQ(field.text(), QStringLiteral("xxxxx"));
}

TEST_F(TextFieldPasteTest, AFieldThatCannotBeWrittenIsLeftAlone) {
    field.setReadOnly(true);
    pasteboard.copyText("text");
    pressPaste();
    EXPECT_TRUE(field.text().isEmpty());
}

TEST_F(TextFieldPasteTest, OtherKeysAreTheFields) {
    QTest::keyClicks(&field, QStringLiteral("v"));
    EXPECT_EQ(field.text(), QStringLiteral("v"));
}

TEST_F(TextFieldPasteTest, ItsMenuPastesTheSame) {
    pasteboard.copyText("text");
    const QMenu* const menu = openMenu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 5);
    QAction* const entry = menu->actions()[2];
    EXPECT_EQ(entry->text(), QStringLiteral("Paste"));
    EXPECT_TRUE(entry->isEnabled());
    entry->trigger();
    EXPECT_EQ(field.text(), QStringLiteral("text"));
}

TEST_F(TextFieldPasteTest, TheMenuKeyIsTheFieldsOwnBusiness) {
    bool isAsked = false;
    class Watcher : public QObject {
    public:
        explicit Watcher(bool& told)
            : m_told(told) {}
        bool eventFilter(QObject*, QEvent* event) override { return m_told |= event->type() == QEvent::ContextMenu; }

    private:
        bool& m_told;
    } watcher(isAsked);
    field.installEventFilter(&watcher);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), field.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&field, &event);
    EXPECT_TRUE(isAsked);
    EXPECT_EQ(field.findChild<QMenu*>(), nullptr);
}

TEST_F(TextFieldPasteTest, AFieldThatWantsNoMenuGetsNone) {
    field.setContextMenuPolicy(Qt::NoContextMenu);
    EXPECT_EQ(openMenu(), nullptr);
}

} // namespace

} // namespace zamber::freedesktop
