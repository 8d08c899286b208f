// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/PortalAppearance.h"
#include "tests/contracts/AppearanceContract.h"
#include "tests/contracts/PortalRig.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/support/Waiting.h"

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

const QString APPEARANCE = u"org.freedesktop.appearance"_s;
const QString GNOME_INTERFACE = u"org.gnome.desktop.interface"_s;

struct PortalAppearanceRig {
    PortalRig portal;
    freedesktop::session::PortalAppearance real{portal.client()};
    Appearance& appearance() { return real; }
    void setDark(bool isDark) { portal.change(APPEARANCE, u"color-scheme"_s, isDark ? u"uint32 1"_s : u"uint32 2"_s); }
};

/// A program that answers each change by colouring its menus anew. It stops after a few, so that a test of an endless
/// loop ends.
std::shared_ptr<int> colorMenusAtEachChange(Appearance& appearance) {
    const auto changes = std::make_shared<int>(0);
    appearance.addChangedHandler([changes, &appearance] {
        if (++*changes < 5) {
            QApplication::setPalette(QPalette(appearance.isDark() ? Qt::black : Qt::white), "QMenu");
        }
    });
    return changes;
}

/// The application's colours, given back when the test ends.
class DesktopColors {
public:
    ~DesktopColors() { QApplication::setPalette(QPalette()); }
    static void set(Qt::GlobalColor color) { QApplication::setPalette(QPalette(color)); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AppearanceContract, FakeAppearanceRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Palette, AppearanceContract, PaletteRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Portal, AppearanceContract, PortalAppearanceRig);

TEST(PortalAppearance, WhatThePortalSaidBeforeWeStartedArrivesAsAChange) {
    PortalRig portal;
    portal.set(APPEARANCE, u"color-scheme"_s, u"uint32 1"_s);
    freedesktop::session::PortalAppearance appearance(portal.client());
    int changes = 0;
    appearance.addChangedHandler([&] { ++changes; });
    EXPECT_FALSE(appearance.isDark()) << "nothing waits for the answer";
    EXPECT_TRUE(waitUntil([&] { return appearance.isDark(); }));
    EXPECT_EQ(changes, 1);
}

TEST(PortalAppearance, WithoutAPreferenceTheDesktopsColoursDecide) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    portal.change(APPEARANCE, u"color-scheme"_s, u"uint32 1"_s);
    EXPECT_TRUE(appearance.isDark());
    portal.change(APPEARANCE, u"color-scheme"_s, u"uint32 0"_s);
    EXPECT_FALSE(appearance.isDark());
}

TEST(PortalAppearance, TheAccentColourIsTheUsersWhenThereIsOne) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    const QColor usual = appearance.accentColor();
    portal.change(APPEARANCE, u"accent-color"_s, u"(1.0, 0.5, 0.0)"_s);
    EXPECT_EQ(appearance.accentColor().name(), u"#ff8000"_s);
    portal.change(APPEARANCE, u"accent-color"_s, u"(-1.0, -1.0, -1.0)"_s);
    EXPECT_EQ(appearance.accentColor(), usual);
}

TEST(PortalAppearance, MotionIsReducedWhenTheDesktopDoesNotAnimate) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    EXPECT_FALSE(appearance.reducedMotion()) << "nobody has said so";
    portal.change(GNOME_INTERFACE, u"enable-animations"_s, u"false"_s);
    EXPECT_TRUE(appearance.reducedMotion());
    portal.change(GNOME_INTERFACE, u"enable-animations"_s, u"true"_s);
    portal.change(APPEARANCE, u"reduced-motion"_s, u"uint32 1"_s);
    EXPECT_TRUE(appearance.reducedMotion());
}

TEST(PortalAppearance, AnswersOfTheWrongKindAreTakenForNone) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    const QColor usual = appearance.accentColor();
    portal.change(APPEARANCE, u"color-scheme"_s, u"'dark as night'"_s);
    portal.change(APPEARANCE, u"accent-color"_s, u"'mauve'"_s);
    portal.change(APPEARANCE, u"accent-color"_s, u"(uint32 1, 0.5, 0.0)"_s);
    portal.change(GNOME_INTERFACE, u"enable-animations"_s, u"'never'"_s);
    portal.emitSignal(u"(s)"_s, u"('nonsense',)"_s);
    portal.emitSignal(u"(sss)"_s, u"('org.freedesktop.appearance', 'color-scheme', 'dark')"_s);
    EXPECT_FALSE(appearance.isDark());
    EXPECT_EQ(appearance.accentColor(), usual);
    EXPECT_FALSE(appearance.reducedMotion());
}

TEST(PortalAppearance, ColouringMenusAtAChangeIsNoChangeOfTheDesktops) {
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    const auto changes = colorMenusAtEachChange(appearance);
    portal.change(GNOME_INTERFACE, u"enable-animations"_s, u"false"_s);
    EXPECT_EQ(*changes, 1) << "reduced motion, and the portal has no word on light or dark";
    portal.change(APPEARANCE, u"accent-color"_s, u"(1.0, 0.5, 0.0)"_s);
    EXPECT_EQ(*changes, 2);
    portal.change(APPEARANCE, u"color-scheme"_s, u"uint32 1"_s);
    EXPECT_EQ(*changes, 3);
    portal.change(APPEARANCE, u"color-scheme"_s, u"uint32 0"_s);
    EXPECT_EQ(*changes, 4);
}

TEST(PortalAppearance, ColouringMenusWhenTheDesktopsColoursChangeIsNoFurtherChange) {
    const DesktopColors colors;
    freedesktop::session::PortalAppearance appearance{QDBusConnection(u"no such connection"_s)};
    const auto changes = colorMenusAtEachChange(appearance);
    DesktopColors::set(Qt::black);
    EXPECT_EQ(*changes, 1);
    DesktopColors::set(Qt::white);
    EXPECT_EQ(*changes, 2);
}

TEST(PortalAppearance, ColoursThatStayLightOrStayDarkAreNoChange) {
    const DesktopColors colors;
    DesktopColors::set(Qt::white);
    freedesktop::session::PortalAppearance appearance{QDBusConnection(u"no such connection"_s)};
    int changes = 0;
    appearance.addChangedHandler([&] { ++changes; });
    DesktopColors::set(Qt::yellow);
    DesktopColors::set(Qt::white);
    EXPECT_EQ(changes, 0);
}

TEST(PortalAppearance, TheDesktopsColoursAreNoChangeWhileThePortalDecides) {
    const DesktopColors colors;
    PortalRig portal;
    freedesktop::session::PortalAppearance appearance(portal.client());
    portal.change(APPEARANCE, u"color-scheme"_s, u"uint32 2"_s);
    int changes = 0;
    appearance.addChangedHandler([&] { ++changes; });
    DesktopColors::set(Qt::black);
    EXPECT_FALSE(appearance.isDark());
    EXPECT_EQ(changes, 0);
    portal.change(APPEARANCE, u"color-scheme"_s, u"uint32 0"_s);
    EXPECT_TRUE(appearance.isDark()) << "the desktop has grown dark meanwhile";
    EXPECT_EQ(changes, 1);
}

TEST(PortalAppearance, AHandlerThatSetsTheApplicationsOwnColoursEnds) {
    const DesktopColors colors;
    freedesktop::session::PortalAppearance appearance{QDBusConnection(u"no such connection"_s)};
    int changes = 0;
    appearance.addChangedHandler([&] {
        if (++changes < 5) {
            DesktopColors::set(appearance.isDark() ? Qt::darkBlue : Qt::yellow);
        }
    });
    DesktopColors::set(Qt::black);
    EXPECT_EQ(changes, 1);
}

} // namespace zamber
