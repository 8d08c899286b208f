// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/BorderedButton.h"
#include "ui/Palette.h"
#include "ui/SegmentedPicker.h"
#include "ui/Switch.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace zamber::ui {

using namespace Qt::StringLiterals;

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

} // namespace zamber::ui
