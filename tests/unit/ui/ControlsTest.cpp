// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/fakes/FakeSymbols.h"
#include "tests/support/Pictures.h"
#include "ui/Badge.h"
#include "ui/BorderedButton.h"
#include "ui/ConfirmationSheet.h"
#include "ui/ContinuousCorners.h"
#include "ui/OverlayScrollBar.h"
#include "ui/PlainButton.h"
#include "ui/SegmentedPicker.h"
#include "ui/Switch.h"
#include "ui/Typography.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace zamber::ui {

using namespace Qt::StringLiterals;

TEST(PlainButton, ItIsPressedAndNeverTakesTheFocus) {
    const FakeSymbols symbols;
    QWidget window;
    auto* field = new QLineEdit(&window);
    auto* button = new PlainButton(
        symbols, {.symbol = u"trash"_s, .text = u"Clear"_s, .pointer = HoverPointer::PointingHand}, &window);
    const QSignalSpy clicked(button, &PlainButton::clicked);
    button->resize(button->sizeHint());
    window.show();
    field->setFocus();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(window.focusWidget(), field);
    EXPECT_EQ(button->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(PlainButton(symbols, {.symbol = u"trash"_s}).cursor().shape(), Qt::ArrowCursor);
}

TEST(PlainButton, ItsSymbolStandsInTheMiddleOfItsCapitals) {
    const FakeSymbols symbols;
    PlainButton button(symbols, {.symbol = u"trash"_s, .symbolPoints = 10, .text = u"HHH"_s, .font = textFont(11)});
    button.setColors(Qt::black, Palette::light(Qt::blue));
    button.resize(button.sizeHint());
    const QImage drawn = button.grab().toImage();
    const int textLeft = drawn.width() - PlainButton::GROUND_PADDING - 18;
    const auto symbol = inkedRange(drawn, QRect(0, 0, textLeft - 4, drawn.height()), Qt::Vertical);
    const auto text = inkedRange(drawn, QRect(textLeft, 0, 18, drawn.height()), Qt::Vertical);
    ASSERT_GE(symbol.first, 0);
    ASSERT_GE(text.first, 0);
    EXPECT_NEAR((symbol.first + symbol.second) / 2.0, (text.first + text.second) / 2.0, 0.51);
}

TEST(ContinuousCorners, TheyBeginEarlierThanArcsAndAreAsRoundInTheirMiddle) {
    const QRectF box(10, 20, 200, 100);
    constexpr double radius = 10;
    const QPainterPath path = continuousRoundedRect(box, radius);
    EXPECT_NEAR(path.boundingRect().left(), box.left(), 0.01);
    EXPECT_NEAR(path.boundingRect().bottom(), box.bottom(), 0.01);
    const double diagonal = radius * (1 - std::sqrt(0.5));
    const QPointF middle = box.topLeft() + QPointF(diagonal, diagonal);
    EXPECT_TRUE(path.contains(middle + QPointF(0.1, 0.1)));
    EXPECT_FALSE(path.contains(middle - QPointF(0.1, 0.1)));
    EXPECT_FALSE(path.contains(box.topRight() + QPointF(-1.15 * radius, 0.01))) << "an arc would be over";
    EXPECT_TRUE(path.contains(box.topRight() + QPointF(-1.6 * radius, 0.01)));
    EXPECT_TRUE(continuousRoundedRect(QRectF(0, 0, 8, 8), 20).contains(QPointF(4, 0.1))) << "no larger than the box";
}

TEST(OverlayScrollBar, ItFadesAfterAWhileAndComesBackWithTheNextScrolling) {
    QScrollArea area;
    auto* const content = new QWidget;
    content->setFixedSize(100, 2000);
    area.setWidget(content);
    auto* const bar = new OverlayScrollBar(&area);
    bar->setMotion(Motion::Reduced);
    area.resize(200, 200);
    area.show();
    const auto isSeen = [bar] {
        QImage drawn(bar->size(), QImage::Format_ARGB32);
        drawn.fill(Qt::transparent);
        bar->render(&drawn, {}, {}, {});
        return inkedRange(drawn, drawn.rect(), Qt::Vertical).first >= 0;
    };
    EXPECT_TRUE(isSeen());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isSeen(); }, 5000));
    area.verticalScrollBar()->setValue(50);
    EXPECT_TRUE(isSeen());
}

TEST(PlainButton, HoveringChangesItsLook) {
    const FakeSymbols symbols;
    PlainButton button(symbols, {.symbol = u"trash"_s, .symbolPoints = 10});
    button.setColors(Qt::gray, Palette::light(Qt::blue));
    button.resize(button.sizeHint());
    button.show();
    const QImage still = button.grab().toImage();
    button.setAttribute(Qt::WA_UnderMouse);
    EXPECT_NE(button.grab().toImage(), still);
}

TEST(Switch, ToAssistiveTechnologyItIsAsLargeAsItsRowAndASegmentAsItself) {
    QWidget window;
    window.resize(400, 100);
    auto* const control = new Switch(u"Switch"_s, &window);
    control->setGeometry(10, 10, 380, 22);
    auto* const picker = new SegmentedPicker(u"Letter"_s, {{u"A"_s, u"a"_s}, {u"B"_s, u"b"_s}}, &window);
    picker->setGeometry(10, 50, 200, 24);
    window.show();
    const auto extents = [](QWidget* widget) { return QAccessible::queryAccessibleInterface(widget)->rect(); };
    EXPECT_EQ(extents(control), QRect(control->mapToGlobal(QPoint()), control->size()));
    for (QRadioButton* const segment : picker->findChildren<QRadioButton*>()) {
        EXPECT_EQ(extents(segment), QRect(segment->mapToGlobal(QPoint()), QSize(100, 24)));
    }
}

TEST(BorderedButton, EachSizeIsSmallerThanTheOneBefore) {
    int height = 100;
    for (const ControlSize size : {ControlSize::Large, ControlSize::Regular, ControlSize::Small, ControlSize::Mini}) {
        const BorderedButton button(u"Update"_s, {.size = size});
        EXPECT_LT(button.sizeHint().height(), height);
        height = button.sizeHint().height();
        EXPECT_GE(height, QFontMetrics(button.font()).height()) << "the text fits";
        EXPECT_GT(button.sizeHint().width(), QFontMetrics(button.font()).horizontalAdvance(button.text()));
    }
}

TEST(BorderedButton, ItsTextIsReadableInEveryLook) {
    for (const Palette& palette : {Palette::light(QColor(0x1F, 0x78, 0xF0)), Palette::dark(QColor(0x1F, 0x78, 0xF0)),
                                   Palette::light(Qt::yellow), Palette::dark(Qt::yellow)}) {
        EXPECT_GE(contrastRatio(palette.onAccent, palette.accentFill), 4.5) << palette.accentFill.name().toStdString();
        const QColor pressed = composed(faded(palette.red, 0.25), palette.ultraThinMaterial);
        EXPECT_GE(contrastRatio(palette.red, pressed), 3.0);
    }
}

TEST(BorderedButton, TheKindsLookDifferentFromEachOther) {
    using Prominence = ButtonStyle::Prominence;
    QList<QImage> looks;
    for (const Prominence prominence : {Prominence::Bordered, Prominence::Prominent, Prominence::Destructive}) {
        for (const auto shape : {ButtonStyle::Shape::Rounded, ButtonStyle::Shape::Capsule}) {
            BorderedButton button(u"Update"_s, {.prominence = prominence, .shape = shape});
            button.setColors(Palette::light(Qt::blue));
            button.resize(button.sizeHint());
            const QImage look = button.grab().toImage();
            EXPECT_FALSE(looks.contains(look));
            looks.append(look);
        }
    }
}

TEST(BorderedButton, TheSpaceBarPressesIt) {
    BorderedButton button(u"Update"_s);
    const QSignalSpy clicked(&button, &BorderedButton::clicked);
    button.show();
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 1);
}

TEST(Badge, ItIsAsWideAsItsText) {
    CapsuleBadge badge;
    badge.setText(u"1/20"_s);
    const int narrow = badge.sizeHint().width();
    badge.setText(u"100/100"_s);
    EXPECT_GT(badge.sizeHint().width(), narrow);
    EXPECT_EQ(badge.accessibleName(), u"100/100"_s);
}

TEST(ConfirmationSheet, ItCoversItsViewAndKeepsTheMouseFromIt) {
    QWidget view;
    view.resize(360, 340);
    auto* sheet = new ConfirmationSheet({u"Sure?"_s, u"It is gone then."_s, u"Clear All"_s}, &view);
    view.show();
    sheet->show();
    view.resize(440, 420);
    EXPECT_EQ(sheet->geometry(), view.rect());
    EXPECT_EQ(view.childAt(5, 5), sheet);
}

TEST(ConfirmationSheet, OnlyTheDestructiveButtonConfirms) {
    QWidget view;
    auto* sheet = new ConfirmationSheet({u"Sure?"_s, u"It is gone then."_s, u"Clear All"_s}, &view);
    const QSignalSpy confirmed(sheet, &ConfirmationSheet::confirmed);
    const QSignalSpy dismissed(sheet, &ConfirmationSheet::dismissed);
    view.show();
    sheet->show();
    const auto buttons = sheet->findChildren<QAbstractButton*>();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_EQ(buttons[0]->text(), u"Clear All"_s);
    EXPECT_EQ(buttons[1]->text(), u"Cancel"_s);
    EXPECT_EQ(view.focusWidget(), sheet) << "no button looks as if Return pressed it";
    QTest::keyClick(sheet, Qt::Key_Space);
    EXPECT_TRUE(sheet->isVisible());
    QTest::keyClick(sheet, Qt::Key_Tab);
    EXPECT_EQ(view.focusWidget(), buttons[1]) << "the harmless one comes first";
    buttons[1]->click();
    EXPECT_EQ(confirmed.count(), 0);
    EXPECT_EQ(dismissed.count(), 1);
    buttons[0]->click();
    EXPECT_EQ(confirmed.count(), 1);
    EXPECT_EQ(dismissed.count(), 2);
}

} // namespace zamber::ui
