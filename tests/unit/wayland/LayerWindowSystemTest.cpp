// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/LayerWindowSystem.h"

#include "platform/wayland/LayerShell.h"

#include <QDialog>
#include <QGuiApplication>
#include <QMargins>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <gtest/gtest.h>

namespace zamber::wayland {

namespace {

constexpr int OVERLAY = 3;
constexpr int TOP_RIGHT = 1 | 8;
constexpr int ALL_SIDES = 1 | 2 | 4 | 8;

QObject* layerOf(const QWindow* window) {
    return window->findChild<QObject*>(QStringLiteral("layer"));
}

/// What the library was told of a window, as a number.
int toldOf(const QWindow* window, const char* property) {
    const QVariant told = layerOf(window)->property(property);
    return told.isValid() ? told.toInt() : -99;
}

} // namespace

class LayerWindowSystemTest : public testing::Test {
protected:
    LayerWindowSystemTest() {
        QObject::connect(&m_windows, &LayerWindowSystem::closeRequested, &m_popover, [this] { ++m_closings; });
    }

    void showPopover() {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        m_windows.place(m_popover.winId(), QRect(screen.right() + 1 - 300 - 8, screen.top() + 10, 300, 200));
        m_popover.show();
    }

    /// The windows that lie on all of a screen.
    static QList<QWindow*> catchers() {
        QWindowList windows = QGuiApplication::topLevelWindows();
        windows.removeIf([](const QWindow* window) {
            return !window->isVisible() || layerOf(window) == nullptr || toldOf(window, "anchors") != ALL_SIDES;
        });
        return windows;
    }

    LayerWindowSystem m_windows{LayerShell::load(), {}};
    QWidget m_popover{nullptr, Qt::Tool | Qt::FramelessWindowHint};
    int m_closings = 0;
};

TEST_F(LayerWindowSystemTest, ThePopoverIsAboveAllAndHasTheKeyboardToItself) {
    showPopover();
    const QWindow* const window = m_popover.windowHandle();
    EXPECT_EQ(toldOf(window, "layer"), OVERLAY);
    EXPECT_EQ(toldOf(window, "anchors"), TOP_RIGHT);
    EXPECT_EQ(layerOf(window)->property("margins").value<QMargins>(), QMargins(0, 10, 8, 0));
    EXPECT_EQ(toldOf(window, "exclusionZone"), 0);
    EXPECT_EQ(toldOf(window, "keyboardInteractivity"), 1);
    EXPECT_EQ(toldOf(window, "screenConfiguration"), 1);
    EXPECT_EQ(window->minimumSize(), QSize(300, 200));
    EXPECT_EQ(window->maximumSize(), QSize(300, 200));
}

TEST_F(LayerWindowSystemTest, APressBesideItIsToCloseIt) {
    EXPECT_EQ(catchers().size(), 0);
    showPopover();
    ASSERT_EQ(catchers().size(), QGuiApplication::screens().size());
    QWindow* const catcher = catchers().first();
    EXPECT_EQ(toldOf(catcher, "layer"), OVERLAY);
    EXPECT_EQ(toldOf(catcher, "exclusionZone"), -1); // over panels, too
    EXPECT_EQ(toldOf(catcher, "keyboardInteractivity"), 0);
    EXPECT_EQ(toldOf(catcher, "screenConfiguration"), 0);
    QTest::mouseClick(catcher, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(m_closings, 1);
    m_popover.hide();
    EXPECT_EQ(catchers().size(), 0);
    showPopover();
    EXPECT_EQ(catchers().size(), QGuiApplication::screens().size());
}

TEST_F(LayerWindowSystemTest, ADialogClosesItAndLeavesNoKeyToOneThatIsOpenedBeside) {
    showPopover();
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    EXPECT_EQ(m_closings, 1);
    m_popover.hide();
    showPopover();
    EXPECT_EQ(toldOf(m_popover.windowHandle(), "keyboardInteractivity"), 0);
    EXPECT_EQ(catchers().size(), 0);
    dialog.hide();
    EXPECT_EQ(m_closings, 2);
}

TEST_F(LayerWindowSystemTest, AMenuIsAnOrdinaryWindow) {
    QMenu menu;
    m_windows.place(menu.winId(), QRect(10, 10, 100, 100));
    EXPECT_EQ(layerOf(menu.windowHandle()), nullptr);
    EXPECT_EQ(menu.windowHandle()->maximumSize(), QSize(100, 100));
}

TEST(WithoutLayersTest, ThePopoverIsAWindowOfAFixedSize) {
    LayerWindowSystem windows(nullptr, {});
    QWidget popover(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    windows.place(popover.winId(), QRect(10, 10, 300, 200));
    popover.show();
    EXPECT_EQ(layerOf(popover.windowHandle()), nullptr);
    EXPECT_EQ(popover.windowHandle()->minimumSize(), QSize(300, 200));
    EXPECT_EQ(popover.windowHandle()->maximumSize(), QSize(300, 200));
}

} // namespace zamber::wayland
