// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtApplication.h"
#include "platform/freedesktop/QtScheduler.h"
#include "platform/freedesktop/popover/PopoverWindow.h"
#include "platform/freedesktop/session/ApplicationNames.h"
#include "platform/freedesktop/tray/TrayClicks.h"
#include "platform/freedesktop/tray/TrayIcon.h"
#include "platform/x11/ButtonPresses.h"
#include "platform/x11/Connection.h"
#include "platform/x11/Keyboard.h"
#include "platform/x11/Windows.h"
#include "platform/x11/X11AccessibilityTrust.h"
#include "platform/x11/X11EmbeddedIcon.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "platform/x11/X11KeystrokePoster.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11WindowSystem.h"
#include "platform/x11/X11Workspace.h"
#include "tests/contracts/AccessibilityTrustContract.h"
#include "tests/contracts/ApplicationContract.h"
#include "tests/contracts/HotKeyCenterContract.h"
#include "tests/contracts/KeystrokePosterContract.h"
#include "tests/contracts/PasteboardContract.h"
#include "tests/contracts/ServedClipboardContract.h"
#include "tests/contracts/StatusItemContract.h"
#include "tests/contracts/WorkspaceContract.h"
#include "tests/contracts/x11/X11Partner.h"
#include "tests/fakes/FakeAppearance.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <optional>

namespace zamber::x11 {

namespace {

// Where the keys lie on every PC keyboard.
constexpr xcb_keycode_t SUPER_KEY = 133;
constexpr xcb_keycode_t SHIFT_KEY = 50;
constexpr xcb_keycode_t CAPS_LOCK_KEY = 66;
constexpr xcb_keycode_t NUM_LOCK_KEY = 77;

xcb_keycode_t keyCodeOf(PhysicalKey key) {
    return key == PhysicalKey::V ? 55 : key == PhysicalKey::Digit2 ? 11 : 12;
}

struct X11Rig {
    X11Partner partner;
    std::unique_ptr<x11::Connection> connection = *x11::Connection::open();

    bool waitUntil(const std::function<bool()>& condition) { return partner.waitUntil(condition); }
};

struct X11PasteboardRig : X11Rig {
    x11::X11Pasteboard adapter{*connection};

    X11PasteboardRig() {
        connection->addEventHandler([this](const xcb_generic_event_t&) { m_hasNews = true; });
        settle();
    }

    Pasteboard& pasteboard() { return adapter; }
    void copyText(const QByteArray& text) { partner.copy({{"UTF8_STRING", text}, {"STRING", "not this one"}}); }
    void copyImage(ImageType type, const QByteArray& bytes) { partner.copy({{nameOf(type), bytes}}); }
    void copyImageWithText(ImageType type, const QByteArray& bytes, const QByteArray& text) {
        partner.copy({{"UTF8_STRING", text}, {nameOf(type), bytes}});
    }
    void copyNothing() { partner.copy({{"text/uri-list-of-another-kind", "x"}}); }
    std::optional<QByteArray> pastedText() { return pasted("UTF8_STRING"); }
    std::optional<QByteArray> pastedImage(ImageType type) { return pasted(nameOf(type)); }

    void settle() {
        // Nothing more is under way when no event comes to either program, twice in a row: a round trip brings what the
        // requests made before it have caused, and the adapter may answer an event that it tells nobody of.
        for (int quietRounds = 0; quietRounds < 2; quietRounds = m_hasNews ? 0 : quietRounds + 1) {
            m_hasNews = false;
            QThreadPool::globalInstance()->waitForDone(); // a picture may be on its way through a worker
            QCoreApplication::processEvents();
            connection->flush();
            connection->catchUp();
            m_hasNews = partner.catchUp() || m_hasNews;
        }
    }

private:
    static const char* nameOf(ImageType type) { return type == ImageType::Png ? "image/png" : "image/tiff"; }

    std::optional<QByteArray> pasted(const char* target) {
        settle();
        partner.requestPaste(target);
        EXPECT_TRUE(waitUntil([this] { return partner.pasted().has_value(); })) << "no answer for " << target;
        return partner.pasted().value_or(std::nullopt);
    }

    bool m_hasNews = false;
};

/// Takes the place of the user's browser: a program of the name that desktops open addresses with, which notes them.
class AddressCatcher {
public:
    /// Before any program is started, since all are started with the environment that this one began with.
    static void install() {
        QFile opener(folder().filePath(QStringLiteral("xdg-open")));
        if (opener.open(QIODevice::WriteOnly)) {
            opener.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >>\"${0%/*}/opened\"\n");
            opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
        qputenv("PATH", QFile::encodeName(folder().path()) + ':' + qgetenv("PATH"));
    }

    AddressCatcher() { QFile::remove(notes()); }

    static QList<QByteArray> taken() {
        QFile file(notes());
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().split('\n') : QList<QByteArray>();
    }

private:
    static const QTemporaryDir& folder() {
        static const QTemporaryDir folder;
        return folder;
    }
    static QString notes() { return folder().filePath(QStringLiteral("opened")); }
};

struct X11WorkspaceRig : X11Rig {
    AddressCatcher catcher;
    x11::Windows windows{*connection};
    x11::X11Workspace adapter{*connection, windows, [](const QString& windowClass) {
                                  return freedesktop::session::ApplicationNames().ofWindowClass(windowClass);
                              }};
    std::vector<xcb_window_t> opened;

    Workspace& workspace() { return adapter; }
    int openApplication(const char* name) {
        opened.push_back(partner.openWindow(name));
        return static_cast<int>(opened.size()) - 1;
    }
    void closeApplication(int number) { partner.closeWindow(opened[number]); }
    void bringToFront(int number) { partner.activateWindow(opened[number]); }
    bool isInFront(int number) { return partner.activeWindow() == opened[number]; }
    void settle() {
        connection->flush();
        connection->catchUp(); // the server has passed the adapter's requests on to the window manager
        EXPECT_TRUE(partner.askWindowManager());
    }
    bool wasOpened(const QUrl& address) { return AddressCatcher::taken() == QList{address.toEncoded()}; }
};

struct X11HotKeyCenterRig : X11Rig {
    x11::Keyboard keyboard{*connection};
    x11::X11HotKeyCenter adapter{*connection, keyboard, [] {}};

    HotKeyCenter& center() { return adapter; }
    void press(PhysicalKey key) { partner.pressKey(keyCodeOf(key), {SUPER_KEY, SHIFT_KEY}); }
    void pressWithLocks(PhysicalKey key) {
        partner.pressKey(CAPS_LOCK_KEY, {});
        partner.pressKey(NUM_LOCK_KEY, {});
        press(key);
        partner.pressKey(NUM_LOCK_KEY, {});
        partner.pressKey(CAPS_LOCK_KEY, {});
    }
    void pressAlone(PhysicalKey key) { partner.pressKey(keyCodeOf(key), {}); }
    void takeElsewhere(PhysicalKey key) { partner.grabKey(keyCodeOf(key), XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT); }
};

struct X11KeystrokePosterRig : X11Rig {
    freedesktop::QtScheduler scheduler;
    x11::X11Pasteboard pasteboard{*connection};
    x11::Keyboard keyboard{*connection};
    x11::Windows windows{*connection};
    x11::X11Workspace workspace{*connection, windows, [](const QString& windowClass) {
                                    return freedesktop::session::ApplicationNames().ofWindowClass(windowClass);
                                }};
    x11::X11HotKeyCenter hotKeys{*connection, keyboard, [] {}};
    x11::X11KeystrokePoster adapter{*connection, keyboard, windows, hotKeys, workspace, pasteboard, scheduler};
    std::map<std::uint64_t, xcb_window_t> opened;

    KeystrokePoster& poster() { return adapter; }
    RunningApplication openApplication() {
        const xcb_window_t window = partner.openWindow("Editor");
        const auto application = workspace.frontmostApplication();
        EXPECT_TRUE(application);
        opened[application->handle] = window;
        return *application;
    }
    void closeApplication(const RunningApplication& application) { partner.closeWindow(opened[application.handle]); }
    int writeClipboard() {
        pasteboard.clearContents();
        pasteboard.setString("ours");
        return pasteboard.changeCount();
    }
    void copyElsewhere() {
        const int written = pasteboard.changeCount();
        EXPECT_TRUE(waitUntil([&] { return pasteboard.standingOf(written) == x11::X11Pasteboard::Standing::Offered; }));
        partner.copy({{"UTF8_STRING", "theirs"}});
        EXPECT_TRUE(waitUntil([&] { return pasteboard.standingOf(written) == x11::X11Pasteboard::Standing::Lost; }));
    }
    void settle() {
        connection->flush();
        connection->catchUp();
        partner.catchUp(); // whose window was sent the keys by the time the server has answered both
    }
    int pastesReceived(const RunningApplication& application) {
        return partner.pastesReceived(opened[application.handle]);
    }
};

struct X11AccessibilityTrustRig : X11Rig {
    x11::X11AccessibilityTrust adapter{*connection};

    AccessibilityTrust& trust() { return adapter; }
    bool canPost() {
        // A hot key of ours is pressed by the adapter's own means: it comes if the server lets key events through.
        x11::Keyboard keyboard{*connection};
        x11::X11HotKeyCenter center{*connection, keyboard, [] {}};
        bool isPressed = false;
        center.setPressedHandler([&isPressed](std::uint32_t) { isPressed = true; });
        EXPECT_TRUE(center.registerHotKey(PhysicalKey::Digit3, {}, {1, 1}));
        partner.pressKey(keyCodeOf(PhysicalKey::Digit3), {});
        return waitUntil([&isPressed] { return isPressed; });
    }
};

struct QtApplicationRig {
    freedesktop::QtApplication adapter{[](WId) {}};

    Application& application() { return adapter; }
    void respondTo(const QString& name, std::function<void()> responder) {
        adapter.setResponder(name, std::move(responder));
    }
    void observe(const QString& name, std::function<void()> observer) {
        adapter.addObserver(name, std::move(observer));
    }
    static bool run(const std::function<void()>& first) {
        constexpr int GIVEN_UP = 99;
        QTimer bound;
        bound.setSingleShot(true);
        bound.callOnTimeout(&bound, [] { QCoreApplication::exit(GIVEN_UP); });
        bound.start(3000);
        QTimer::singleShot(0, qApp, first);
        return QCoreApplication::exec() != GIVEN_UP;
    }
};

struct TrayIconRig : X11Rig {
    freedesktop::QtScheduler scheduler;
    FakeAppearance appearance;
    x11::Windows windows{*connection};
    x11::X11WindowSystem windowSystem{*connection, windows};
    x11::ButtonPresses presses{*connection};
    freedesktop::popover::PopoverWindow popover{appearance, windowSystem};
    freedesktop::tray::TrayClicks clicks{popover, presses, scheduler};
    x11::X11EmbeddedIcon embeddedIcon{*connection};
    freedesktop::tray::TrayIcon adapter{clicks, &embeddedIcon, windowSystem, {}};

    TrayIconRig() = default;

    StatusItem& item() { return adapter; }
    void click(MouseButton button) {
        // The tray takes the icon in when it gets to it, and moves it to its place after that.
        constexpr int SETTLED_MS = 150;
        std::optional<QRect> last;
        QElapsedTimer age;
        EXPECT_TRUE(waitUntil([&] {
            const xcb_window_t window = embeddedIcon.window();
            const std::optional<QRect> place = embeddedIcon.rectangle();
            if (place != last || !place || !partner.isViewable(window)) {
                last = place;
                age.start();
                return false;
            }
            return age.hasExpired(SETTLED_MS) && place->contains(partner.centreOf(window)) &&
                   adapter.button()->screenRectangle == *place;
        }));
        partner.clickWindow(embeddedIcon.window(), button == MouseButton::Left ? 1 : 3);
    }
    void chooseFirst() {
        const auto* const menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        partner.click(menu->mapToGlobal(QPoint(menu->width() / 2, 12)), 1);
    }
    bool isMenuOpen() const { return QApplication::activePopupWidget() != nullptr; }
};

} // namespace

using Standing = x11::X11Pasteboard::Standing;

TEST(X11KeystrokePoster, AnotherOwnerOfWhatWeHaveWrittenIsAsGoodAsOurselves) {
    X11KeystrokePosterRig rig;
    const RunningApplication editor = rig.openApplication();
    const int written = rig.writeClipboard();
    ASSERT_TRUE(rig.waitUntil([&] { return rig.pasteboard.standingOf(written) == Standing::Offered; }));
    rig.partner.copy({{"UTF8_STRING", "ours"}});
    std::optional<PasteOutcome> outcome;
    rig.poster().postPaste({.changeCount = written, .target = editor}, [&](PasteOutcome told) { outcome = told; });
    ASSERT_TRUE(rig.waitUntil([&] { return outcome.has_value(); }));
    EXPECT_EQ(outcome, PasteOutcome::Posted);
    EXPECT_EQ(rig.pasteboard.changeCount(), written);
}

TEST(X11KeystrokePoster, AKeyOfTheKeystrokeThatTheUserHoldsIsPressedAnew) {
    X11KeystrokePosterRig rig;
    const RunningApplication editor = rig.openApplication();
    const int written = rig.writeClipboard();
    rig.partner.holdKey(keyCodeOf(PhysicalKey::V));
    std::optional<PasteOutcome> outcome;
    rig.poster().postPaste({.changeCount = written, .target = editor}, [&](PasteOutcome told) { outcome = told; });
    EXPECT_TRUE(rig.waitUntil([&] { return outcome.has_value(); }));
    rig.partner.releaseKey(keyCodeOf(PhysicalKey::V));
    rig.settle();
    EXPECT_EQ(rig.pastesReceived(editor), 1);
}

TEST(X11Workspace, AWindowOfTheWindowManagersOwnIsNoApplication) {
    X11WorkspaceRig rig;
    rig.openApplication("Letters");
    ASSERT_TRUE(rig.workspace().frontmostApplication());
    rig.partner.activateUnmanagedWindow();
    EXPECT_EQ(rig.workspace().frontmostApplication(), std::nullopt);
}

TEST(X11Pasteboard, AnEarlierWriteIsOfferedAgainAndTheLastInTheEnd) {
    X11PasteboardRig rig;
    const auto write = [&](const QByteArray& text) {
        rig.adapter.clearContents();
        rig.adapter.setString(text);
        return rig.adapter.changeCount();
    };
    const int first = write("first");
    const int second = write("second");
    EXPECT_EQ(rig.pastedText(), "second");
    rig.adapter.holdWrites();
    rig.adapter.offer(first);
    EXPECT_EQ(rig.pastedText(), "first");
    EXPECT_EQ(rig.adapter.standingOf(first), Standing::Offered);
    EXPECT_EQ(rig.adapter.standingOf(second), Standing::Pending);
    EXPECT_EQ(rig.adapter.string(), "second") << "the program sees its last write";
    write("third");
    EXPECT_EQ(rig.pastedText(), "first");
    rig.adapter.showWrites();
    EXPECT_EQ(rig.pastedText(), "third");
}

TEST(X11Pasteboard, ARefusedRequestIsNotCountedAsServed) {
    // Text fields of GTK ask for a type of their own first, and for the text only when that has been refused.
    X11PasteboardRig rig;
    rig.adapter.setString("ours");
    int served = 0;
    QObject::connect(&rig.adapter, &X11Pasteboard::served, &rig.adapter, [&] { ++served; });
    EXPECT_EQ(rig.pastedImage(ImageType::Png), std::nullopt);
    EXPECT_EQ(served, 0);
    EXPECT_EQ(rig.pastedText(), "ours");
    EXPECT_EQ(served, 1);
}

TEST(X11Pasteboard, ACopyOfAnotherProgramMakesEarlierWritesLost) {
    X11PasteboardRig rig;
    rig.adapter.setString("ours");
    const int written = rig.adapter.changeCount();
    rig.settle();
    rig.copyText("theirs");
    ASSERT_TRUE(rig.waitUntil([&] { return rig.adapter.standingOf(written) == Standing::Lost; }));
    rig.adapter.offer(written);
    rig.settle();
    EXPECT_EQ(rig.adapter.string(), "theirs");
    EXPECT_EQ(rig.pastedText(), "theirs");
}

INSTANTIATE_TYPED_TEST_SUITE_P(X11, PasteboardContract, X11PasteboardRig);
INSTANTIATE_TYPED_TEST_SUITE_P(X11, WorkspaceContract, X11WorkspaceRig);
INSTANTIATE_TYPED_TEST_SUITE_P(X11, HotKeyCenterContract, X11HotKeyCenterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(X11, KeystrokePosterContract, X11KeystrokePosterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(X11, ServedClipboardContract, X11KeystrokePosterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(X11, AccessibilityTrustContract, X11AccessibilityTrustRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, ApplicationContract, QtApplicationRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, StatusItemContract, TrayIconRig);

} // namespace zamber::x11

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    zamber::x11::AddressCatcher::install();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
