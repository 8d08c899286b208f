// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/fakes/FakeSymbols.h"
#include "ui/Badge.h"
#include "ui/BorderedButton.h"
#include "ui/ConfirmationSheet.h"
#include "ui/ContinuousCorners.h"
#include "ui/OverlayScrollBar.h"
#include "ui/PlainButton.h"
#include "ui/SearchField.h"
#include "ui/SegmentedPicker.h"
#include "ui/Switch.h"
#include "ui/Typography.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

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

namespace {

/// The first and the last row, or column, of the picture's part that is not as its corner is.
std::pair<int, int> ink(const QImage& picture, const QRect& part, Qt::Orientation along) {
    const QRgb ground = picture.pixel(part.topLeft());
    int first = -1;
    int last = -1;
    const bool isAcross = along == Qt::Horizontal;
    for (int i = isAcross ? part.left() : part.top(); i <= (isAcross ? part.right() : part.bottom()); ++i) {
        for (int j = isAcross ? part.top() : part.left(); j <= (isAcross ? part.bottom() : part.right()); ++j) {
            if (picture.pixel(isAcross ? i : j, isAcross ? j : i) != ground) {
                first = first < 0 ? i : first;
                last = i;
            }
        }
    }
    return {first, last};
}

} // namespace

TEST(PlainButton, ItsSymbolStandsInTheMiddleOfItsCapitals) {
    const FakeSymbols symbols;
    PlainButton button(symbols, {.symbol = u"trash"_s, .symbolPoints = 10, .text = u"HHH"_s, .font = textFont(11)});
    button.setColors(Qt::black, Palette::light(Qt::blue));
    button.resize(button.sizeHint());
    const QImage drawn = button.grab().toImage();
    const int textLeft = drawn.width() - PlainButton::GROUND_PADDING - 18;
    const auto symbol = ink(drawn, QRect(0, 0, textLeft - 4, drawn.height()), Qt::Vertical);
    const auto text = ink(drawn, QRect(textLeft, 0, 18, drawn.height()), Qt::Vertical);
    ASSERT_GE(symbol.first, 0);
    ASSERT_GE(text.first, 0);
    EXPECT_NEAR((symbol.first + symbol.second) / 2.0, (text.first + text.second) / 2.0, 0.51);
}

TEST(SearchField, TheCaretStandsBesideThePlaceholdersFirstLetter) {
    const FakeSymbols symbols;
    SearchField search(symbols, u"Search clipboard…"_s);
    search.setColors(Palette::light(Qt::blue));
    search.resize(300, 32);
    search.show();
    auto* const field = search.findChild<QLineEdit*>();
    constexpr int roomBesideTheCaret = 5; // which Qt adds on each side
    const int caret = field->inputMethodQuery(Qt::ImCursorRectangle).toRect().left() + roomBesideTheCaret;
    field->clearFocus();
    const QImage drawn = field->grab().toImage();
    EXPECT_GE(ink(drawn, drawn.rect(), Qt::Horizontal).first, caret + 2);
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
        return ink(drawn, drawn.rect(), Qt::Vertical).first >= 0;
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

namespace {

/// How many pixels of the control look clearly different with the focus and without.
template <class Control>
int pixelsOfFocus(Control& control, const Palette& palette) {
    QWidget window;
    control.setParent(&window);
    control.setColors(palette);
    control.resize(control.sizeHint());
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto picture = [&] {
        QImage image(control.size(), QImage::Format_RGB32);
        image.fill(palette.ultraThinMaterial);
        control.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    };
    control.clearFocus(); // which the only control of a window has at once
    const QImage without = picture();
    control.setFocus();
    EXPECT_TRUE(control.hasFocus());
    const QImage with = picture();
    int visible = 0;
    constexpr double least = 2.0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            visible += contrastRatio(with.pixelColor(x, y), without.pixelColor(x, y)) >= least ? 1 : 0;
        }
    }
    control.setParent(nullptr);
    return visible;
}

} // namespace

TEST(FocusRing, ItIsSeenOnEveryControlInEveryState) {
    for (const QColor& accent : {QColor(0x1F, 0x78, 0xF0), QColor(Qt::yellow), QColor(Qt::darkGray)}) {
        for (const Palette& palette : {Palette::light(accent), Palette::dark(accent)}) {
            constexpr int about = 60; // pixels, of a ring around the smallest of them
            for (const bool isOn : {false, true}) {
                Switch control(u"Switch"_s);
                control.setMotion(Motion::Reduced);
                control.setChecked(isOn);
                EXPECT_GE(pixelsOfFocus(control, palette), about)
                    << isOn << " " << accent.name().toStdString() << " " << palette.isDark;
            }
            for (const auto prominence : {ButtonStyle::Prominence::Bordered, ButtonStyle::Prominence::Prominent,
                                          ButtonStyle::Prominence::Destructive}) {
                BorderedButton button(u"Update"_s, {.prominence = prominence});
                EXPECT_GE(pixelsOfFocus(button, palette), about) << static_cast<int>(prominence);
            }
        }
    }
}

namespace {

enum class Side { Left, Top, Right, Bottom };

/// The colours from outside to the control's middle, half a point apart, along a line across the middle of a side.
QList<QColor> across(const QImage& picture, Side side) {
    constexpr int depth = 16;
    QList<QColor> colours;
    for (int i = 0; i < depth; ++i) {
        const int x = picture.width() / 2;
        const int y = picture.height() / 2;
        colours.append(side == Side::Left    ? picture.pixelColor(i, y)
                       : side == Side::Right ? picture.pixelColor(picture.width() - 1 - i, y)
                       : side == Side::Top   ? picture.pixelColor(x, i)
                                             : picture.pixelColor(x, picture.height() - 1 - i));
    }
    return colours;
}

/// Of the control with and without the focus, at twice the scale, with two points of the window around it.
std::pair<QImage, QImage> withAndWithoutFocus(QWidget& control, QWidget& focused, const QRect& part,
                                              const Palette& palette) {
    constexpr int margin = 2;
    constexpr double scale = 2;
    QWidget window;
    QPushButton other(&window);
    control.setParent(&window);
    control.resize(control.sizeHint());
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto picture = [&] {
        QImage image((part.size() + QSize(2 * margin, 2 * margin)) * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(palette.ultraThinMaterial);
        control.render(&image, QPoint(margin, margin) - part.topLeft(), {}, QWidget::DrawChildren);
        return image;
    };
    focused.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(focused.hasFocus());
    const QImage with = picture();
    other.setFocus();
    const QImage without = picture();
    control.setParent(nullptr);
    return {with, without};
}

/// How well the ring stands out from what lies beside it, on the side where it does so least.
double ringContrast(const std::pair<QImage, QImage>& looks) {
    constexpr int neighbourhood = 6; // pixels, three points
    double least = 21;
    for (const Side side : {Side::Left, Side::Top, Side::Right, Side::Bottom}) {
        const QList<QColor> with = across(looks.first, side);
        const QList<QColor> without = across(looks.second, side);
        double best = 1;
        for (qsizetype i = 0; i < with.size(); ++i) {
            if (with[i] == without[i]) {
                continue; // no part of the ring
            }
            for (qsizetype j = std::max<qsizetype>(0, i - neighbourhood); j < std::min(with.size(), i + neighbourhood);
                 ++j) {
                best = std::max(best, contrastRatio(with[i], with[j]));
            }
        }
        least = std::min(least, best);
    }
    return least;
}

} // namespace

TEST(FocusRing, ItStandsOutFromWhatSurroundsItAllAround) {
    constexpr double leastOfGraphics = 3; // as the guidelines for accessible web content ask of what is no text
    for (const QColor& accent : {QColor(0x1F, 0x78, 0xF0), QColor(Qt::yellow), QColor(Qt::darkGray), QColor(Qt::white),
                                 QColor(Qt::black), QColor(0xE0, 0x4F, 0x9A)}) {
        for (const Palette& palette : {Palette::light(accent), Palette::dark(accent)}) {
            const auto expectRing = [&](QWidget& control, QWidget& focused, const QRect& part, const char* what) {
                EXPECT_GE(ringContrast(withAndWithoutFocus(control, focused, part, palette)), leastOfGraphics)
                    << what << ", accent " << accent.name().toStdString() << (palette.isDark ? ", dark" : ", light");
            };
            for (const bool isOn : {false, true}) {
                Switch control(u"Switch"_s);
                control.setMotion(Motion::Reduced);
                control.setColors(palette);
                control.setChecked(isOn);
                control.resize(control.sizeHint());
                constexpr QSize track(38, 22);
                const QRect part(QPoint(control.width() - track.width(), (control.height() - track.height()) / 2),
                                 track);
                expectRing(control, control, part, isOn ? "switch that is on" : "switch that is off");
            }
            for (const auto prominence : {ButtonStyle::Prominence::Bordered, ButtonStyle::Prominence::Prominent,
                                          ButtonStyle::Prominence::Destructive}) {
                BorderedButton button(u"Update"_s, {.prominence = prominence});
                button.setColors(palette);
                expectRing(button, button, QRect(QPoint(), button.sizeHint()), "button");
            }
            for (const QString& value : {u"a"_s, u"c"_s}) {
                SegmentedPicker picker(u"Letter"_s, {{u"Aaaa"_s, u"a"_s}, {u"Bbbb"_s, u"b"_s}});
                picker.setMotion(Motion::Reduced);
                picker.setColors(palette);
                picker.setValue(value);
                picker.resize(picker.sizeHint());
                auto* const segment = picker.findChild<QRadioButton*>();
                expectRing(picker, *segment, QRect(0, 0, picker.width() / 2, picker.height()),
                           value == u"a" ? "chosen segment" : "segment that is not chosen");
            }
        }
    }
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

TEST(SearchField, ItTellsEveryChangeAndItsButtonEmptiesIt) {
    const FakeSymbols symbols;
    SearchField field(symbols, u"Search clipboard…"_s);
    const QSignalSpy changed(&field, &SearchField::textChanged);
    field.show();
    field.setText(u"a"_s);
    field.setText(u"a"_s);
    EXPECT_EQ(changed.count(), 1);
    auto* clear = field.findChild<QAbstractButton*>();
    ASSERT_TRUE(clear->isVisible());
    clear->click();
    EXPECT_EQ(field.text(), QString());
    EXPECT_FALSE(clear->isVisible());
}

TEST(SearchField, ItsEmojiAreColouredWhileOneTypes) {
    const FakeSymbols symbols;
    SearchField search(symbols, u"Search clipboard…"_s);
    search.setColors(Palette::light(Qt::gray));
    search.resize(300, 32);
    search.show();
    auto* const field = search.findChild<QLineEdit*>();
    const QSignalSpy changed(&search, &SearchField::textChanged);
    const auto colouredPixels = [field] {
        const QImage drawn = field->grab().toImage();
        int count = 0;
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x) {
                count += drawn.pixelColor(x, y).saturation() > 60 ? 1 : 0;
            }
        }
        return count;
    };
    field->insert(u"☎"_s);
    EXPECT_EQ(colouredPixels(), 0);
    field->insert(u"😀"_s);
    EXPECT_GT(colouredPixels(), 20);
    field->setCursorPosition(0);
    field->insert(u"ab"_s);
    EXPECT_GT(colouredPixels(), 20) << "with the caret before them";
    EXPECT_EQ(field->cursorPosition(), 2);
    EXPECT_EQ(changed.count(), 3) << "nothing but the text's own changes is told";
    field->setCursorPosition(5);
    field->backspace();
    EXPECT_EQ(colouredPixels(), 0);
    field->undo();
    EXPECT_EQ(field->text(), u"ab☎😀"_s);
    EXPECT_GT(colouredPixels(), 20);
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
