// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/FakeSymbols.h"
#include "tests/unit/popover/PopoverStage.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace zamber::popover {

using namespace Qt::StringLiterals;

/// The list view on its stage, with a user's hands and eyes.
class ClipboardListViewTest : public testing::Test {
protected:
    void open() {
        stage.makeView();
        stage.view->show();
    }

    void press(HardwareKey key, int times = 1) {
        for (int time = 0; time < times; ++time) {
            EXPECT_EQ(stage.keyMonitor.press(key), KeyDisposition::Swallow);
        }
    }

    void pin(int itemIndex) { stage.manager->togglePin(stage.manager->items()[itemIndex]); }

    /// The part of the view with that object name or accessible name, if it is to be seen.
    template <class Widget>
    Widget* visible(const QString& name) {
        for (Widget* widget : stage.view->findChildren<Widget*>()) {
            if ((widget->objectName() == name || widget->accessibleName() == name) && widget->isVisible()) {
                return widget;
            }
        }
        return nullptr;
    }

    QString labelText(const QString& name) {
        const auto* label = visible<QLabel>(name);
        return label == nullptr ? QString() : label->text();
    }

    QString badge() {
        const auto* widget = visible<QWidget>(u"countBadge"_s);
        return widget == nullptr ? QString() : widget->accessibleName();
    }

    QString textOfRow(int row) { return stage.list().items()[row].content.preview(); }

    void click(QPoint point, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&stage.list(), button, {}, point);
    }

    void moveTo(QPoint point) {
        QMouseEvent move(QEvent::MouseMove, point, stage.list().mapToGlobal(point), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&stage.list(), &move);
    }

    QList<int> highlightedRows() {
        QList<int> rows;
        for (int row = 0; row < stage.list().items().size(); ++row) {
            if (stage.list().isHovered(row)) {
                rows.append(row);
            }
        }
        return rows;
    }

    std::optional<QByteArray> pasted() { return stage.pasteboard.string(); }

    FakeSymbols symbols;
    PopoverStage stage{symbols};
};

} // namespace zamber::popover
