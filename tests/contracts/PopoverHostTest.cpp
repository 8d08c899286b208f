// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/PopoverPlacement.h"
#include "platform/freedesktop/popover/PopoverWindow.h"
#include "tests/contracts/PopoverHostContract.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakePopoverHost.h"
#include "tests/fakes/FakeWindowSystem.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <functional>
#include <memory>

namespace zamber {

using namespace freedesktop::popover;

namespace {

struct FakePopoverHostRig {
    FakePopoverHost fake;

    PopoverHost& host() { return fake; }
    QSize contentSize() { return fake.contentSize; }
    void giveContent() {
        fake.setContent([] { return nullptr; });
    }
    void pressOutside() { fake.pressOutside(); }
};

void pressIn(QWindow* window, QPoint position) {
    QMouseEvent press(QEvent::MouseButtonPress, position, window->mapToGlobal(position), Qt::LeftButton, Qt::LeftButton,
                      {});
    QCoreApplication::sendEvent(window, &press);
}

/// Counts the widgets' wishes to be painted that come by way of the event queue.
struct PaintWishes final : QObject {
    int count = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::UpdateLater ? 1 : 0;
        return false;
    }
};

/// Tells of its size whenever it is drawn.
class DrawnWidget final : public QWidget {
public:
    std::function<void(QSize size)> drawn;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (drawn) {
            drawn(size());
        }
    }
};

struct PopoverWindowRig {
    FakeWindowSystem windowSystem;
    FakeAppearance appearance;
    DrawnWidget content;
    freedesktop::popover::PopoverWindow real{appearance, windowSystem};

    PopoverWindowRig() = default; // the widget has no implicit one

    PopoverHost& host() { return real; }
    QSize contentSize() { return content.size(); }
    void giveContent() {
        real.setContent([this] { return &content; });
    }
    void pressOutside() { real.press(Qt::LeftButton, QPoint(-4000, 4000)); }
};

class PopoverWindowTest : public testing::Test {
protected:
    PopoverWindowTest() {
        rig.giveContent();
        popover.setContentSize({300, 200});
    }

    void show() { popover.show({QRect(400, 0, 24, 24)}, PopoverEdge::MinY); }
    QWidget* window() { return rig.content.window(); }

    PopoverWindowRig rig;
    freedesktop::popover::PopoverWindow& popover = rig.real;
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, PopoverHostContract, FakePopoverHostRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Window, PopoverHostContract, PopoverWindowRig);

TEST(PopoverPlacement, ItHangsBelowTheAnchorAndCentredOnIt) {
    EXPECT_EQ(
        freedesktop::popover::popoverPlacement({500, 0, 24, 24}, {440, 420}, PopoverEdge::MinY, {0, 0, 1280, 800}),
        QRect(292, 24 + freedesktop::popover::POPOVER_GAP, 440, 420));
}

TEST(PopoverPlacement, ItStandsAboveAnAnchorAtTheBottom) {
    EXPECT_EQ(
        freedesktop::popover::popoverPlacement({500, 776, 24, 24}, {440, 420}, PopoverEdge::MinY, {0, 0, 1280, 776}),
        QRect(292, 776 - freedesktop::popover::POPOVER_GAP - 420, 440, 420));
}

TEST(PopoverPlacement, TheOtherPreferenceIsKeptWhereThereIsRoom) {
    EXPECT_EQ(
        freedesktop::popover::popoverPlacement({500, 600, 24, 24}, {440, 420}, PopoverEdge::MaxY, {0, 0, 1280, 1200})
            .y(),
        600 - freedesktop::popover::POPOVER_GAP - 420);
    EXPECT_EQ(
        freedesktop::popover::popoverPlacement({500, 100, 24, 24}, {440, 420}, PopoverEdge::MaxY, {0, 0, 1280, 800})
            .y(),
        124 + freedesktop::popover::POPOVER_GAP);
}

TEST(PopoverPlacement, ItIsAlwaysWholeInsideTheWorkArea) {
    const QRect workAreas[] = {{0, 0, 1280, 800}, {0, 30, 1280, 770}, {-1920, 200, 1920, 1050}, {1280, -300, 600, 500}};
    for (const QRect& workArea : workAreas) {
        for (int x = workArea.left() - 200; x < workArea.right() + 200; x += 97) {
            for (int y = workArea.top() - 200; y < workArea.bottom() + 200; y += 89) {
                for (const PopoverEdge edge : {PopoverEdge::MinY, PopoverEdge::MaxY}) {
                    const QRect placed =
                        freedesktop::popover::popoverPlacement({x, y, 24, 24}, {440, 420}, edge, workArea);
                    EXPECT_EQ(placed.size(), QSize(440, 420));
                    EXPECT_TRUE(workArea.contains(placed)) << x << ',' << y;
                }
            }
        }
    }
}

TEST(PopoverPlacement, OneThatIsTooLargeShrinksToWhatFits) {
    constexpr int GAP = freedesktop::popover::POPOVER_GAP;
    EXPECT_EQ(
        freedesktop::popover::popoverPlacement({500, 0, 24, 24}, {440, 420}, PopoverEdge::MinY, {100, 50, 320, 240}),
        QRect(100 + GAP, 50 + GAP, 320 - 2 * GAP, 240 - 2 * GAP));
    EXPECT_EQ(
        freedesktop::popover::popoverPlacement({500, 0, 24, 24}, {500, 520}, PopoverEdge::MinY, {0, 28, 910, 484}),
        QRect(262, 28 + GAP, 500, 484 - 2 * GAP))
        << "no narrower than it has to be";
}

TEST(PopoverPlacement, AtTheEdgesOfTheWorkAreaItKeepsAMargin) {
    const QRect workArea(0, 28, 1280, 772);
    const QRect free = workArea.adjusted(freedesktop::popover::POPOVER_GAP, freedesktop::popover::POPOVER_GAP,
                                         -freedesktop::popover::POPOVER_GAP, -freedesktop::popover::POPOVER_GAP);
    for (const QPoint corner :
         {workArea.topLeft(), workArea.topRight(), workArea.bottomLeft(), workArea.bottomRight()}) {
        const QRect placed =
            freedesktop::popover::popoverPlacement(QRect(corner, QSize(1, 1)), {440, 420}, PopoverEdge::MinY, workArea);
        EXPECT_TRUE(free.contains(placed)) << corner.x() << ',' << corner.y();
    }
}

TEST_F(PopoverWindowTest, NoWishToBePaintedIsLeftForAfterTheFirstPainting) {
    PaintWishes wishes;
    rig.content.installEventFilter(&wishes);
    show();
    EXPECT_EQ(wishes.count, 1) << "Qt's own, of a widget that is shown";
    QCoreApplication::processEvents();
    EXPECT_EQ(wishes.count, 1);
}

TEST_F(PopoverWindowTest, TheContentIsDrawnInItsSizeBeforeTheFirstOpening) {
    QSize drawn;
    rig.content.drawn = [&drawn](QSize size) { drawn = size; };
    ASSERT_TRUE(QTest::qWaitFor([&drawn] { return !drawn.isEmpty(); }));
    EXPECT_EQ(drawn, QSize(300, 200));
    EXPECT_FALSE(popover.isShown());
    EXPECT_FALSE(window()->isVisible());
}

TEST_F(PopoverWindowTest, ItIsAToolWindowAndNeverAPopup) {
    ASSERT_TRUE(QTest::qWaitFor([this] { return window() != &rig.content; })) << "the content is made";
    EXPECT_EQ(window()->windowType(), Qt::Tool);
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(window()->windowTitle(), QStringLiteral("Zamber"));
    EXPECT_NE(window()->windowHandle(), nullptr) << "the window is there before it is first shown";
    EXPECT_FALSE(window()->isVisible());
}

TEST_F(PopoverWindowTest, ItTellsWhenItOpensAndCloses) {
    const QSignalSpy shown(&popover, &freedesktop::popover::PopoverWindow::shown);
    const QSignalSpy closed(&popover, &freedesktop::popover::PopoverWindow::closed);
    show();
    show();
    EXPECT_EQ(shown.count(), 1);
    popover.performClose();
    popover.performClose();
    EXPECT_EQ(closed.count(), 1);
}

TEST_F(PopoverWindowTest, ItAsksForTheFocusAtEachShowing) {
    show();
    EXPECT_EQ(rig.windowSystem.presented, QList<WId>{window()->winId()});
    show();
    EXPECT_EQ(rig.windowSystem.presented.size(), 2);
}

TEST_F(PopoverWindowTest, AFocusThatIsReportedLostButIsThereLeavesItOpen) {
    show();
    QCoreApplication::processEvents();
    ASSERT_NE(QApplication::activeWindow(), nullptr);
    rig.windowSystem.loseFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(popover.isShown());
}

TEST_F(PopoverWindowTest, TheFocusThatALastShowingLostDoesNotCloseTheNext) {
    show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return window()->isActiveWindow(); }));
    popover.performClose();
    show(); // in the same turn of the main loop, as where a hot key was pressed just after Escape
    QCoreApplication::processEvents();
    EXPECT_TRUE(popover.isShown());
}

TEST_F(PopoverWindowTest, NeitherDoesALossThatTheWindowSystemTold) {
    show();
    rig.windowSystem.loseFocus();
    popover.performClose();
    show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(popover.isShown());
}

TEST_F(PopoverWindowTest, TheFocusThatAGrabHidesIsLookedForUntilItHasGone) {
    show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return window()->isActiveWindow(); }));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.isActiveWindow(); }));
    other.hide();
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    rig.windowSystem.hasFocus = true;
    rig.windowSystem.loseFocus();
    QTest::qWait(0);
    EXPECT_TRUE(popover.isShown());
    rig.windowSystem.hasFocus = false;
    EXPECT_TRUE(QTest::qWaitFor([this] { return !popover.isShown(); }));
}

TEST_F(PopoverWindowTest, ItClosesWhenTheDesktopAsksForIt) {
    rig.windowSystem.requestClose();
    show();
    rig.windowSystem.requestClose();
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, TheVisibleFrameIsPlacedNotItsShadow) {
    const QRect workArea = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect placed =
        freedesktop::popover::popoverPlacement({400, 0, 24, 24}, {300, 200}, PopoverEdge::MinY, workArea);
    show();
    EXPECT_EQ(popover.frameRectangle(), placed);
    EXPECT_TRUE(window()->geometry().contains(placed.adjusted(-10, -10, 10, 10)));
    EXPECT_EQ(rig.content.mapToGlobal(QPoint(0, 0)), placed.topLeft());
    popover.performClose();

    rig.windowSystem.composited = false;
    show();
    EXPECT_EQ(popover.frameRectangle(), placed);
    EXPECT_EQ(window()->geometry(), placed) << "no shadow without a compositor";
}

TEST_F(PopoverWindowTest, AnAnchorBeyondAllScreensEndsUpOnTheNearestOne) {
    const QRect workArea = QGuiApplication::primaryScreen()->availableGeometry();
    popover.show({QRect(workArea.right() + 5000, -3000, 24, 24)}, PopoverEdge::MinY);
    EXPECT_TRUE(workArea.contains(popover.frameRectangle()));
}

TEST_F(PopoverWindowTest, ACompositedWindowHasRoundCornersAndASolidMiddle) {
    rig.content.setAutoFillBackground(true);
    show();
    const QImage picture = window()->grab().toImage();
    const QRect inner = QRect(rig.content.pos(), rig.content.size());
    EXPECT_LT(picture.pixelColor(inner.topLeft()).alpha(), 128);
    EXPECT_LT(picture.pixelColor(inner.bottomRight()).alpha(), 160);
    EXPECT_EQ(picture.pixelColor(inner.center()).alpha(), 255);
    EXPECT_EQ(picture.pixelColor(inner.topLeft() + QPoint(6, 6)).alpha(), 255);
    EXPECT_GT(picture.pixelColor(inner.center().x(), inner.bottom() + 4).alpha(), 10) << "the shadow";
    EXPECT_LT(picture.pixelColor(0, 0).alpha(), 4);
}

TEST_F(PopoverWindowTest, APressInsideKeepsItAndAPressOnItsShadowClosesIt) {
    show();
    pressIn(window()->windowHandle(), rig.content.geometry().center());
    EXPECT_TRUE(popover.isShown());
    popover.press(Qt::LeftButton, popover.frameRectangle().center());
    EXPECT_TRUE(popover.isShown());
    pressIn(window()->windowHandle(), QPoint(2, 2));
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, APressInAnotherWindowOfOursClosesItButNotOneInItsOwnMenu) {
    QWidget settings;
    settings.show();
    show();
    QMenu menu(&rig.content);
    menu.addAction(QStringLiteral("Copy"));
    menu.popup(QPoint(10, 10));
    pressIn(menu.windowHandle(), QPoint(3, 3));
    EXPECT_TRUE(popover.isShown());
    menu.close();
    pressIn(settings.windowHandle(), QPoint(3, 3));
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, AMenuOfItsOwnIsPartOfItWhereverItReaches) {
    show();
    QMenu menu(&rig.content);
    menu.addAction(QStringLiteral("Delete"));
    menu.popup(popover.frameRectangle().bottomRight() + QPoint(40, 0));
    ASSERT_FALSE(popover.frameRectangle().contains(menu.geometry().center()));
    popover.press(Qt::LeftButton, menu.geometry().center());
    EXPECT_TRUE(popover.isShown());
    popover.press(Qt::LeftButton, menu.geometry().bottomRight() + QPoint(40, 40));
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, APressThatIsFilteredLeavesItOpen) {
    popover.setPressFilter(
        [](Qt::MouseButton button, QPoint place) { return button == Qt::LeftButton && place == QPoint(-10, -10); });
    show();
    popover.press(Qt::LeftButton, QPoint(-10, -10));
    EXPECT_TRUE(popover.isShown());
    popover.press(Qt::RightButton, QPoint(-10, -10));
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, WithTheCompositorGoesTheRoomForTheShadowAndComesAgainWithIt) {
    show();
    const QRect frame = popover.frameRectangle();
    EXPECT_NE(window()->geometry(), frame);
    rig.windowSystem.setComposited(false);
    EXPECT_EQ(popover.frameRectangle(), frame);
    EXPECT_EQ(window()->geometry(), frame);
    EXPECT_EQ(rig.windowSystem.shadows.last(), QMargins());
    rig.windowSystem.setComposited(true);
    EXPECT_EQ(popover.frameRectangle(), frame);
    EXPECT_EQ(window()->geometry().marginsRemoved(rig.windowSystem.shadows.last()), frame);
}

TEST_F(PopoverWindowTest, ClosedItDoesNotMindTheCompositor) {
    rig.windowSystem.setComposited(false);
    EXPECT_FALSE(popover.isShown());
    show();
    EXPECT_EQ(window()->geometry(), popover.frameRectangle());
}

TEST_F(PopoverWindowTest, ItClosesWhenAnotherProgramComesToTheFrontButNotForAWindowOfOurs) {
    show();
    auto own = std::make_unique<QWidget>();
    own->show();
    own->activateWindow();
    QCoreApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), own.get());
    EXPECT_TRUE(popover.isShown());

    // No window of ours is active any more, and the popover's is told so: another program has come to the front.
    own.reset();
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    QEvent deactivation(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(window(), &deactivation);
    EXPECT_TRUE(popover.isShown()) << "a turn of the main loop shows who follows";
    QCoreApplication::processEvents();
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, TheContentIsMadeOnceForTheFirstShowingOrWhenTheStartIsOver) {
    int timesMade = 0;
    const auto make = [&] {
        ++timesMade;
        return &rig.content;
    };
    popover.setContent(make);
    EXPECT_EQ(timesMade, 0) << "the start does not wait for it";
    show();
    EXPECT_EQ(timesMade, 1);
    popover.performClose();
    show();
    EXPECT_EQ(timesMade, 1);
    popover.performClose();

    popover.setContent(make);
    EXPECT_TRUE(QTest::qWaitFor([&] { return timesMade == 2; }));
    show();
    EXPECT_EQ(timesMade, 2);
}

TEST_F(PopoverWindowTest, TheContentStaysTheCallers) {
    auto content = std::make_unique<QWidget>();
    {
        FakeAppearance appearance;
        FakeWindowSystem windowSystem;
        freedesktop::popover::PopoverWindow other(appearance, windowSystem);
        other.setContent([&content] { return content.get(); });
        other.show({QRect(400, 0, 24, 24)}, PopoverEdge::MinY);
        EXPECT_NE(content->window(), content.get());
    }
    EXPECT_EQ(content->parent(), nullptr);
    popover.setContent([&content] { return content.get(); });
    show();
    popover.performClose();
    content.reset();
    show();
    EXPECT_TRUE(popover.isShown()) << "even without a content";
}

} // namespace zamber
