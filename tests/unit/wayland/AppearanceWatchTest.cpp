// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/AppearanceWatch.h"

#include <QCoreApplication>
#include <QWindow>

#include <gtest/gtest.h>

namespace zamber::wayland {

TEST(AppearanceWatchTest, AWindowAppearsWhenItIsExposedAndNoLongerHasWhenItIsHidden) {
    QWindow window;
    const AppearanceWatch& watch = AppearanceWatch::of(window);
    EXPECT_FALSE(watch.hasAppeared());
    for (int time = 0; time < 2; ++time) {
        window.show();
        EXPECT_FALSE(watch.hasAppeared()) << "before the window has been painted";
        QCoreApplication::processEvents();
        EXPECT_TRUE(watch.hasAppeared());
        window.hide();
        EXPECT_FALSE(watch.hasAppeared());
    }
}

TEST(AppearanceWatchTest, AWindowThatIsExposedWhenItIsAskedAboutForTheFirstTimeHasAppeared) {
    QWindow window;
    window.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(AppearanceWatch::of(window).hasAppeared());
}

TEST(AppearanceWatchTest, EachWindowHasOneOfItsOwn) {
    QWindow first;
    QWindow second;
    EXPECT_EQ(&AppearanceWatch::of(first), &AppearanceWatch::of(first));
    EXPECT_NE(&AppearanceWatch::of(first), &AppearanceWatch::of(second));
}

} // namespace zamber::wayland
