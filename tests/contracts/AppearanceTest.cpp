// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/PortalAppearance.h"
#include "tests/contracts/AppearanceContract.h"
#include "tests/contracts/PortalRig.h"
#include "tests/fakes/FakeAppearance.h"

#include <QApplication>
#include <QPalette>

namespace zamber {

using namespace Qt::StringLiterals;

namespace {

struct FakeAppearanceRig {
    FakeAppearance fake;
    Appearance& appearance() { return fake; }
    void setDark(bool isDark) { fake.setDark(isDark); }
};

/// A desktop without a portal: only its colours tell.
struct PaletteRig {
    freedesktop::session::PortalAppearance real{QDBusConnection(u"no such connection"_s)};
    Appearance& appearance() { return real; }
    void setDark(bool isDark) {
        QApplication::setPalette(QPalette(isDark ? Qt::black : Qt::white));
        QCoreApplication::processEvents();
    }
    ~PaletteRig() { QApplication::setPalette(QPalette()); }
};

struct PortalAppearanceRig {
    PortalRig portal;
    freedesktop::session::PortalAppearance real{portal.client()};
    Appearance& appearance() { return real; }
    void setDark(bool isDark) { portal.change(u"org.freedesktop.appearance"_s, u"color-scheme"_s, isDark ? 1U : 2U); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AppearanceContract, FakeAppearanceRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Palette, AppearanceContract, PaletteRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Portal, AppearanceContract, PortalAppearanceRig);

TEST(PortalAppearance, WhatThePortalSaidBeforeWeStartedArrivesAsAChange) {
    PortalRig portal;
    portal.set(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 1U);
    freedesktop::session::PortalAppearance appearance(portal.client());
    int changes = 0;
    appearance.addChangedHandler([&] { ++changes; });
    EXPECT_FALSE(appearance.isDark()) << "nothing waits for the answer";
    EXPECT_TRUE(PortalRig::waitUntil([&] { return appearance.isDark(); }));
    EXPECT_GE(changes, 1);
}

TEST(PortalAppearance, WithoutAPreferenceTheDesktopsColoursDecide) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    portal.change(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 1U);
    EXPECT_TRUE(appearance.isDark());
    portal.change(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 0U);
    EXPECT_FALSE(appearance.isDark());
}

TEST(PortalAppearance, TheAccentColourIsTheUsersWhenThereIsOne) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    const QColor usual = appearance.accentColor();
    portal.changeAccent(1.0, 0.5, 0.0);
    EXPECT_EQ(appearance.accentColor().name(), u"#ff8000"_s);
    portal.changeAccent(-1, -1, -1);
    EXPECT_EQ(appearance.accentColor(), usual);
}

TEST(PortalAppearance, MotionIsReducedWhenTheDesktopDoesNotAnimate) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    EXPECT_FALSE(appearance.reducedMotion()) << "nobody has said so";
    portal.change(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, false);
    EXPECT_TRUE(appearance.reducedMotion());
    portal.change(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, true);
    portal.change(u"org.freedesktop.appearance"_s, u"reduced-motion"_s, 1U);
    EXPECT_TRUE(appearance.reducedMotion());
}

TEST(PortalAppearance, AnswersOfTheWrongKindAreTakenForNone) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    const QColor usual = appearance.accentColor();
    portal.change(u"org.freedesktop.appearance"_s, u"color-scheme"_s, u"dark as night"_s);
    portal.change(u"org.freedesktop.appearance"_s, u"accent-color"_s, u"mauve"_s);
    EXPECT_FALSE(appearance.isDark());
    EXPECT_EQ(appearance.accentColor(), usual);
}

} // namespace zamber
