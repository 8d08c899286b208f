// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/BootstrapSymbols.h"
#include "tests/unit/popover/PaintRecorder.h"
#include "tests/unit/popover/PopoverStage.h"

#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace zamber::popover {

using namespace Qt::StringLiterals;

using Level = QColor ui::Palette::*;
using Kind = Painted::Kind;

inline constexpr double ANY = -1;
/// Half a line of rounding, of fonts and of whole pixels.
inline constexpr double TOLERANCE_POINTS = 1.0;

struct Expected {
    QString what; ///< a text or a symbol's name
    double x;
    double y;
    double width;
    double height;
    double points;
    int weight;
    Level level;
    double opacity = 1;
};

class PopoverGeometryTest : public testing::Test {
protected:
    void open() {
        stage.makeView();
        stage.view->show();
        QTest::qWait(0);
    }

    void look() { painted = PaintRecorder::record(*stage.view, symbols); }

    /// The thing of that name, the topmost one at or below `fromY`.
    const Painted* find(const QString& what, double fromY = 0) const {
        const Painted* found = nullptr;
        for (const Painted& one : painted) {
            if (one.what == what && one.place.top() >= fromY && (!found || one.place.top() < found->place.top())) {
                found = &one;
            }
        }
        return found;
    }

    void expect(const Expected& expected, double fromY = 0) const {
        SCOPED_TRACE(expected.what.toStdString());
        const Painted* found = find(expected.what, fromY);
        ASSERT_NE(found, nullptr);
        const auto near = [](double is, double should, const char* side) {
            if (should != ANY) {
                EXPECT_NEAR(is, should, TOLERANCE_POINTS) << side;
            }
        };
        near(found->place.x(), expected.x, "x");
        near(found->place.y(), expected.y, "y");
        near(found->place.width(), expected.width, "width");
        near(found->place.height(), expected.height, "height");
        EXPECT_EQ(found->points, expected.points);
        EXPECT_EQ(found->weight, expected.weight);
        EXPECT_EQ(found->color.rgba(), ui::faded(palette.*expected.level, expected.opacity).rgba());
    }

    /// A filled shape of the colour with that rectangle.
    void expectFill(const QRectF& place, const QColor& color) const {
        for (const Painted& one : painted) {
            const QRectF off(one.place.topLeft() - place.topLeft(), one.place.bottomRight() - place.bottomRight());
            if (one.kind == Kind::Fill && one.color.rgba() == color.rgba() && std::abs(off.left()) <= 0.5 &&
                std::abs(off.top()) <= 0.5 && std::abs(off.right()) <= 0.5 && std::abs(off.bottom()) <= 0.5) {
                return;
            }
        }
        ADD_FAILURE() << "nothing of " << color.name(QColor::HexArgb).toStdString() << " at " << place.x() << ","
                      << place.y() << " " << place.width() << "x" << place.height();
    }

    void hover(int row) {
        HistoryListWidget& list = stage.list();
        const QPoint point = list.rowRectangle(row).center();
        QMouseEvent move(QEvent::MouseMove, point, list.mapToGlobal(point), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&list, &move);
    }

    /// Where the row lies in the whole view.
    QRectF rowPlace(int row) { return QRectF(stage.list().rowRectangle(row)).translated(stage.list().pos()); }
    /// Where something of that height begins that stands in the middle of the row.
    double middle(int row, double height) { return rowPlace(row).center().y() - height / 2; }

    const freedesktop::BootstrapSymbols realSymbols;
    const TaggedSymbols symbols{realSymbols};
    PopoverStage stage{symbols};
    ui::Palette palette = ui::Palette::light(stage.appearance.accentColor());
    QList<Painted> painted;
};

} // namespace zamber::popover
