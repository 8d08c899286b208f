// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/PreferenceKeys.h"

#include "tests/unit/popover/ClipboardListViewFixture.h"

#include <QWheelEvent>

#include <algorithm>
#include <chrono>

namespace zamber::popover {

using namespace std::chrono_literals;

inline constexpr double POINTS_PER_NOTCH = 56;

/// A list that is longer than the popover, with a hand on the wheel and an eye on what moves.
class HistoryListMovesTest : public ClipboardListViewTest {
protected:
    /// Four lines each, so that a row is higher than any guess; "entry 0" is the first row.
    void copyEntries(int count) {
        write(stage.defaults, preferences::maxItems, 200);
        for (int number = count - 1; number >= 0; --number) {
            stage.copyText("entry " + QByteArray::number(number) + "\nsecond line\nthird line\nfourth line");
        }
    }

    /// Texts of a line that goes on and on: two lines in the list, more than fits when it is expanded.
    void copyLongTexts(int count, int words = 300) {
        for (int number = count - 1; number >= 0; --number) {
            stage.copyText("long " + QByteArray::number(number) + QByteArray(" words and words").repeated(words / 3));
        }
    }

    HistoryListWidget& list() { return stage.list(); }
    QPoint middle() { return list().rect().center(); }
    QUuid entry(int row) { return row < 0 ? QUuid() : list().items()[row].id; }

    int rowOf(const QUuid& id) {
        for (int row = 0; row < list().items().size(); ++row) {
            if (entry(row) == id) {
                return row;
            }
        }
        return -1;
    }

    /// The row that lies at the point; -1 for none.
    int rowAt(QPoint point) {
        for (int row = 0; row < list().items().size(); ++row) {
            if (list().rowRectangle(row).contains(point)) {
                return row;
            }
        }
        return -1;
    }

    /// The row in the middle of the view, or just below if that is between two rows.
    int middleRow() { return std::max(rowAt(middle()), rowAt(middle() + QPoint(0, 8))); }

    int top(const QUuid& id) { return list().rowRectangle(rowOf(id)).top(); }

    int firstSeenRow() {
        int row = 0;
        while (list().rowRectangle(row).bottom() < 0) {
            ++row;
        }
        return row;
    }

    void turn(int notches, QPoint at) { turnBy(QPoint(0, 120 * notches), {}, at); }
    void turn(int notches) { turn(notches, middle()); }
    void turnBy(QPoint angle, QPoint pixels, QPoint at) {
        QWheelEvent wheel(QPointF(at), list().mapToGlobal(QPointF(at)), pixels, angle, {}, {}, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&list(), &wheel);
    }

    /// So many notches down, and a little more if the pointer would be between two rows then.
    int turnOntoARow(int notches) {
        turn(-notches);
        while (rowAt(middle()) < 0) {
            turnBy({}, QPoint(0, -4), middle());
        }
        return rowAt(middle());
    }

    /// The hand rests; what waits for that happens.
    void pause() { stage.scheduler.advance(1s); }

    void scrollDown(int notches) {
        for (int notch = 0; notch < notches; ++notch) {
            turn(-1);
        }
        pause();
    }

    void leave() {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&list(), &leave);
    }

    /// Clicks the highlighted row's button; where it was pressed.
    QPoint clickAction(int row, RowAction action) {
        moveTo(list().rowRectangle(row).center());
        const QPoint at = list().actionRectangle(row, action).center();
        moveTo(at);
        click(at);
        return at;
    }
};

} // namespace zamber::popover
