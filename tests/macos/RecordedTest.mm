// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// What each adapter asks of the system: calls, values and order.

#include "platform/macos/AutoreleasePool.h"
#include "platform/macos/MacAccessibilityTrust.h"
#include "platform/macos/MacAlert.h"
#include "platform/macos/MacAppBundle.h"
#include "platform/macos/MacAppearance.h"
#include "platform/macos/MacApplication.h"
#include "platform/macos/MacApplicationDelegate.h"
#include "platform/macos/MacApplicationSupport.h"
#include "platform/macos/MacDiskImageTool.h"
#include "platform/macos/MacHotKeyCenter.h"
#include "platform/macos/MacKeyMonitor.h"
#include "platform/macos/MacKeystrokePoster.h"
#include "platform/macos/MacLinkDetector.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacPasteboard.h"
#include "platform/macos/MacScheduler.h"
#include "platform/macos/MacStatusItem.h"
#include "platform/macos/MacSymbols.h"
#include "platform/macos/MacSystemSound.h"
#include "platform/macos/MacUserDefaults.h"
#include "platform/macos/MacWindows.h"
#include "platform/macos/MacWorkspace.h"
#include "tests/contracts/StandInDiskImageTool.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"
#include "tests/macos/runtime/Runtime.h"

#include <QTemporaryDir>
#include <QWidget>

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>
#include <unistd.h>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

constexpr HotKeyModifiers COMMAND_SHIFT{.command = true, .shift = true};
constexpr std::uint32_t SIGNATURE = 0x5A4D4252; // ZMBR
constexpr unsigned HOT_KEY_PRESSED = 5;
constexpr unsigned HOT_KEY_RELEASED = 6;

MenuItem line(const char* title, const char* key, const char* selector, std::function<void()> action) {
    return {.title = QString::fromUtf8(title),
            .keyEquivalent = QString::fromUtf8(key),
            .action = std::move(action),
            .selector = QString::fromUtf8(selector)};
}

} // namespace

TEST(Recorded, TheHotKeysAreThreeAndTheirHandlerComesLast) {
    static macos::MacHotKeyCenter center; // for the life of the process
    static std::vector<std::uint32_t> pressed;
    EXPECT_THAT(
        callsDuring([] {
            EXPECT_TRUE(center.registerHotKey(PhysicalKey::V, COMMAND_SHIFT, {SIGNATURE, 1}));
            EXPECT_TRUE(center.registerHotKey(PhysicalKey::Digit2, COMMAND_SHIFT, {SIGNATURE, 2}));
            EXPECT_TRUE(center.registerHotKey(PhysicalKey::Digit3, COMMAND_SHIFT, {SIGNATURE, 3}));
            center.setPressedHandler([](std::uint32_t id) { pressed.push_back(id); });
        }),
        ElementsAre("RegisterEventHotKey code: 9 modifiers: 0x300 signature: 0x5a4d4252 id: 1 target: "
                    "application options: 0",
                    "RegisterEventHotKey code: 19 modifiers: 0x300 signature: 0x5a4d4252 id: 2 target: "
                    "application options: 0",
                    "RegisterEventHotKey code: 20 modifiers: 0x300 signature: 0x5a4d4252 id: 3 target: "
                    "application options: 0",
                    "InstallEventHandler target: application types: 1 class: 0x6b657962 kind: 5 installed: nil"));
    EXPECT_THAT(
        callsDuring([] { system::sendKeyboardEvent(HOT_KEY_PRESSED, 3); }),
        ElementsAre("GetEventParameter name: 0x2d2d2d2d type: 0x686b6964 actualType: nil size: 8 actualSize: nil",
                    "a handler returned 0"));
    EXPECT_THAT(pressed, IsEmpty()) << "told within the event manager's handler";
    system::sendKeyboardEvent(HOT_KEY_PRESSED, 1);
    system::sendKeyboardEvent(HOT_KEY_RELEASED, 1);
    system::sendKeyboardEvent(HOT_KEY_PRESSED, std::nullopt); // one whose id cannot be read
    macos::letPass();
    EXPECT_THAT(pressed, ElementsAre(3, 1, 0));
}

TEST(Recorded, AHotKeyAloneHasItsOwnModifiersAndOneHeldElsewhereIsNone) {
    macos::MacHotKeyCenter center;
    EXPECT_THAT(callsDuring([&] { center.registerHotKey(PhysicalKey::V, {.command = true}, {SIGNATURE, 9}); }),
                ElementsAre(testing::HasSubstr("modifiers: 0x100 ")));
    EXPECT_THAT(callsDuring([&] { center.registerHotKey(PhysicalKey::V, {.shift = true}, {SIGNATURE, 9}); }),
                ElementsAre(testing::HasSubstr("modifiers: 0x200 ")));
    system::holdHotKeyElsewhere(19, true);
    EXPECT_FALSE(center.registerHotKey(PhysicalKey::Digit2, COMMAND_SHIFT, {SIGNATURE, 2}));
    system::holdHotKeyElsewhere(19, false);
    EXPECT_EQ(center.commandKeyHint(), QString());
}

TEST(Recorded, ThePasteIsTwoEventsOfOneSourceAndIsOverBeforeItIsSaidToBe) {
    const int before = system::livingKeyEvents();
    macos::MacKeystrokePoster poster;
    EXPECT_THAT(callsDuring([&] { poster.postPaste({}, [] { system::note("done"); }); }),
                ElementsAre("CGEventSourceCreate 1", "CGEventCreateKeyboardEvent source: one key: 9 down",
                            "CGEventCreateKeyboardEvent source: one key: 9 up",
                            "CGEventPost tap: 0 key: 9 down flags: 0x100000",
                            "CGEventPost tap: 0 key: 9 up flags: 0x100000", "done"));
    EXPECT_EQ(system::livingKeyEvents(), before);
}

TEST(Recorded, EventsThatCannotBeMadeAreNotPosted) {
    system::failToCreateEvents(true);
    macos::MacKeystrokePoster poster;
    EXPECT_THAT(callsDuring([&] { poster.postPaste({}, [] { system::note("done"); }); }),
                ElementsAre("CGEventSourceCreate 1", testing::_, testing::_, "done"));
    system::failToCreateEvents(false);
}

TEST(Recorded, TheStatusItemIsASquareThatSendsAnActionAtBothButtonsReleases) {
    macos::MacStatusItem item;
    EXPECT_THAT(callsDuring([&] { item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber")); }),
                ElementsAre("NSStatusBar statusItemWithLength: -2",
                            "NSImage imageWithSystemSymbolName: doc.on.clipboard accessibilityDescription: Zamber",
                            "NSStatusBarButton sendActionOn: 0x14"));
    const auto anchor = item.button();
    ASSERT_TRUE(anchor);
    EXPECT_EQ(anchor->screenRectangle, QRect(1000, 0, 24, 24)); // at the top, as Qt counts
    auto* const button = (__bridge NSStatusBarButton*)reinterpret_cast<void*>(anchor->handle);
    EXPECT_NE(button.image, nil);
    EXPECT_EQ(button.target, nil);
}

TEST(Recorded, AClickIsToldByItsButton) {
    macos::MacStatusItem item;
    std::vector<MouseButton> clicks;
    item.setClickedHandler([&clicks](MouseButton button) { clicks.push_back(button); });
    item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
    EXPECT_THAT(callsDuring("NSApplication", [] { system::clickStatusItem(system::Click::Left); }),
                ElementsAre("NSApplication sendAction: togglePopover to: nil from: a sender"));
    system::clickStatusItem(system::Click::Right);
    system::clickStatusItem(system::Click::Left);
    EXPECT_THAT(clicks, ElementsAre(MouseButton::Left, MouseButton::Right, MouseButton::Left));
}

TEST(Recorded, WithoutAButtonThereIsNoPlace) {
    macos::MacStatusItem item;
    item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
    system::setStatusItemHasButton(false);
    EXPECT_FALSE(item.button());
    system::setStatusItemHasButton(true);
}

TEST(Recorded, TheMenuIsAttachedForOneClickAndItsLinesAreChosenAgainAndAgain) {
    macos::MacStatusItem item;
    int toggles = 0;
    item.setClickedHandler([&toggles](MouseButton) { ++toggles; });
    item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
    std::string chosen;
    const QList<MenuItem> menu{line("Settings…", ",", "openSettings", [&] { chosen += 's'; }), MenuItem{},
                               line("  Launch at Login", "", "toggleLaunchAtLogin", [&] { chosen += 'l'; }), MenuItem{},
                               line("Quit Zamber", "q", "quitApp", [&] { chosen += 'q'; })};
    system::setMenuChoice([](const auto&) { return 2; });
    EXPECT_THAT(
        callsDuring("NS", [&] { item.showMenuOnce(menu); }),
        ElementsAre("NSStatusItem setMenu: one", "NSStatusBarButton performClick: nil menu: attached",
                    "NSMenu item 'Settings…' action: openSettings target: nil keyEquivalent: ','", "NSMenu separator",
                    "NSMenu item '  Launch at Login' action: toggleLaunchAtLogin target: nil keyEquivalent: ''",
                    "NSMenu separator", "NSMenu item 'Quit Zamber' action: quitApp target: nil keyEquivalent: 'q'",
                    "NSApplication sendAction: toggleLaunchAtLogin to: nil from: a sender",
                    "NSStatusItem setMenu: nil"));
    for (const int index : {0, 4, 0}) {
        system::setMenuChoice([index](const auto&) { return index; });
        item.showMenuOnce(menu);
    }
    EXPECT_EQ(chosen, "lsqs");
    EXPECT_EQ(toggles, 0);
    system::clickStatusItem(system::Click::Left);
    EXPECT_EQ(toggles, 1);
}

TEST(Recorded, AnItemThatGoesIsTakenOutOfTheBar) {
    EXPECT_THAT(callsDuring("NSStatusBar ",
                            [] {
                                macos::MacStatusItem item;
                                item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Zamber"));
                            }),
                ElementsAre("NSStatusBar statusItemWithLength: -2", "NSStatusBar removeStatusItem:"));
}

TEST(Recorded, AResponderOfANameTakesThePlaceOfTheOneBefore) {
    macos::MacApplication application;
    std::string answered;
    {
        const QString name = QStringLiteral("answerForARecordedTest:"); // gone before the action comes
        macos::respondToAction(name, [&] { answered += 'a'; });
        macos::respondToAction(name, [&] { answered += 'b'; });
    }
    EXPECT_THAT(callsDuring([&] { EXPECT_TRUE(application.sendAction(QStringLiteral("answerForARecordedTest:"))); }),
                ElementsAre("NSApplication sendAction: answerForARecordedTest: to: nil from: nil"));
    EXPECT_EQ(answered, "b");
}

TEST(Recorded, TheApplicationIsAnAccessoryAndIsActivatedAboveOthers) {
    macos::MacApplication application;
    EXPECT_THAT(callsDuring([&] {
                    application.setAccessoryPolicy();
                    application.activate();
                    application.postNotification(QStringLiteral("openSettings"));
                    application.terminate();
                }),
                ElementsAre("NSApplication setActivationPolicy: 1", "NSApplication activateIgnoringOtherApps: 1",
                            "NSNotificationCenter postNotificationName: openSettings object: nil",
                            "NSApplication terminate: nil"));
}

TEST(Recorded, AnotherStartAsksForUsAndNothingElseIsOpened) {
    macos::MacApplication application;
    id delegate = NSApp.delegate;
    EXPECT_FALSE([delegate applicationShouldHandleReopen:NSApp hasVisibleWindows:NO]);
    int asked = 0;
    application.setShowRequestedHandler([&asked] { ++asked; });
    EXPECT_FALSE([delegate applicationShouldHandleReopen:NSApp hasVisibleWindows:YES]);
    EXPECT_EQ(asked, 1);
    application.setShowRequestedHandler({});
}

TEST(Recorded, AnAlertHasItsTextsAndButtonsInOrderAndIsInFront) {
    macos::MacAlert alert;
    system::answerAlert(1);
    EXPECT_THAT(callsDuring([&] {
                    EXPECT_EQ(alert.run({.style = AlertStyle::Warning,
                                         .message = QStringLiteral("Message?"),
                                         .informativeText = QStringLiteral("More."),
                                         .buttons = {QStringLiteral("First"), QStringLiteral("Second"),
                                                     QStringLiteral("Third")}}),
                              1);
                }),
                ElementsAre("NSAlert addButtonWithTitle: First", "NSAlert addButtonWithTitle: Second",
                            "NSAlert addButtonWithTitle: Third", "NSApplication activateIgnoringOtherApps: 1",
                            "NSAlert runModal style: 0 message: Message? informative: More."));
    system::answerAlert(NSModalResponseAbort);
    EXPECT_THAT(callsDuring("NSAlert",
                            [&] {
                                EXPECT_EQ(alert.run({.message = QStringLiteral("M"),
                                                     .informativeText = {},
                                                     .buttons = {QStringLiteral("Go"), QStringLiteral("No")}}),
                                          1);
                            }),
                ElementsAre(testing::_, testing::_, "NSAlert runModal style: 1 message: M informative: "));
}

TEST(Recorded, ThePasteboardIsAskedForTheTypesByTheirNames) {
    macos::MacPasteboard pasteboard;
    const int before = pasteboard.changeCount();
    system::copyTextElsewhere(QStringLiteral("theirs"));
    EXPECT_EQ(pasteboard.changeCount(), before + 1);
    EXPECT_THAT(callsDuring([&] {
                    EXPECT_TRUE(!pasteboard.data(ImageType::Tiff));
                    EXPECT_TRUE(!pasteboard.data(ImageType::Png));
                    EXPECT_EQ(pasteboard.string(), "theirs");
                }),
                ElementsAre("NSPasteboard dataForType: public.tiff", "NSPasteboard dataForType: public.png",
                            "NSPasteboard stringForType: public.utf8-plain-text"));
    EXPECT_THAT(callsDuring([&] {
                    pasteboard.clearContents();
                    pasteboard.setString("text");
                    pasteboard.setData(ImageType::Tiff, "bytes");
                    pasteboard.setData(ImageType::Png, "png");
                }),
                ElementsAre("NSPasteboard clearContents",
                            "NSPasteboard setString: 4 characters forType: public.utf8-plain-text",
                            "NSPasteboard setData: 5 bytes forType: public.tiff",
                            "NSPasteboard setData: 3 bytes forType: public.png"));
    EXPECT_EQ(pasteboard.changeCount(), before + 2);
}

TEST(Recorded, ATextKeepsTheCharacterThatLooksLikeAByteOrderMark) {
    macos::MacPasteboard pasteboard;
    for (const QByteArray& text : {QByteArray("\xEF\xBB\xBFmarked"), QByteArray("in the \xEF\xBB\xBF middle")}) {
        pasteboard.clearContents();
        pasteboard.setString(text);
        EXPECT_EQ(pasteboard.string(), text);
    }
}

TEST(Recorded, TheFrontApplicationIsActivatedWithoutOptions) {
    macos::MacWorkspace workspace;
    const int letters = system::openApplication("Letters");
    const auto front = workspace.frontmostApplication();
    ASSERT_TRUE(front);
    EXPECT_EQ(front->localizedName, QStringLiteral("Letters"));
    EXPECT_GT(front->processId, 0);
    EXPECT_EQ(workspace.frontmostApplication(), front);
    system::openApplication("Numbers");
    EXPECT_NE(workspace.frontmostApplication(), front);
    EXPECT_THAT(callsDuring([&] { workspace.activate(*front); }),
                ElementsAre("NSRunningApplication Letters activateWithOptions: 0"));
    EXPECT_EQ(system::applicationInFront(), letters);
    system::quitApplication(letters);
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
    workspace.activate(*front);
    EXPECT_EQ(system::applicationInFront(), 0);
}

TEST(Recorded, AddressesInstancesAndTheTrashAreTheWorkspaces) {
    macos::MacWorkspace workspace;
    const QTemporaryDir home;
    system::setHome(home.path());
    EXPECT_THAT(callsDuring([&] { workspace.open(*macos::MacAccessibilityTrust().settingsAddress()); }),
                ElementsAre("NSWorkspace openURL: "
                            "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
    const QString program = home.filePath(QStringLiteral("Program"));
    QFile file(program);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n:>\"$0.started\"\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    file.close();
    bool isDone = false;
    EXPECT_THAT(callsDuring([&] {
                    workspace.openNewInstance(program, [&isDone](const std::optional<QString>& error) {
                        EXPECT_TRUE(NSThread.isMainThread);
                        EXPECT_EQ(error, std::nullopt);
                        isDone = true;
                    });
                }),
                ElementsAre("NSWorkspace openApplicationAtURL: " + program.toStdString() +
                            " createsNewApplicationInstance: 1"));
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(macos::waitUntil([&isDone] { return isDone; }));
    EXPECT_TRUE(macos::waitUntil([&] { return QFile::exists(program + QStringLiteral(".started")); }));
    EXPECT_THAT(callsDuring([&] { EXPECT_TRUE(workspace.moveToTrash(program)); }),
                ElementsAre("NSFileManager trashItemAtURL: resultingItemURL: nil"));
    EXPECT_FALSE(QFile::exists(program));
    EXPECT_TRUE(QFile::exists(home.filePath(QStringLiteral(".Trash/Program"))));
}

TEST(Recorded, TrustIsAskedAtEachCall) {
    const macos::MacAccessibilityTrust trust;
    system::setTrusted(false);
    EXPECT_FALSE(trust.isTrusted());
    system::setTrusted(true);
    EXPECT_TRUE(trust.isTrusted());
}

TEST(Recorded, TheLoginItemIsTheMainApplicationsService) {
    macos::MacLoginItem item;
    const std::vector states{LoginItemStatus::NotRegistered, LoginItemStatus::Enabled,
                             LoginItemStatus::RequiresApproval, LoginItemStatus::NotFound};
    for (int state = 0; state < 4; ++state) {
        system::setLoginItemStatus(state);
        EXPECT_EQ(item.status(), states[static_cast<std::size_t>(state)]);
    }
    EXPECT_THAT(callsDuring([&] {
                    EXPECT_TRUE(item.registerItem());
                    EXPECT_EQ(item.status(), LoginItemStatus::Enabled);
                    EXPECT_TRUE(item.unregisterItem());
                }),
                ElementsAre("SMAppService registerAndReturnError:", "SMAppService status",
                            "SMAppService unregisterAndReturnError:"));
    system::failLoginItem(true);
    const auto outcome = item.registerItem();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error(),
              QStringLiteral("Error Domain=SMAppServiceErrorDomain Code=1 \"Operation not permitted\""));
    EXPECT_FALSE(item.unregisterItem());
    system::failLoginItem(false);
    EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
}

TEST(Recorded, ASoundIsPlayedByName) {
    macos::MacSystemSound sounds;
    EXPECT_THAT(callsDuring([&] { sounds.play(QStringLiteral("Tink")); }),
                ElementsAre("NSSound soundNamed: Tink", "NSSound play"));
    system::setSoundsThere(false);
    EXPECT_THAT(callsDuring([&] { sounds.play(QStringLiteral("Tink")); }), ElementsAre("NSSound soundNamed: Tink"));
    system::setSoundsThere(true);
}

TEST(Recorded, AnObserverOfADefaultAsksForNewValuesWithoutAContext) {
    macos::MacUserDefaults defaults;
    EXPECT_THAT(callsDuring([&] { defaults.addObserver(QStringLiteral("popoverSize"), [] {}); }),
                ElementsAre("NSUserDefaults standard addObserver forKeyPath: popoverSize options: 1 context: (nil)"));
}

TEST(Recorded, WholeNumbersOfAnySizeAreReadAsFarAsTheyGo) {
    macos::MacUserDefaults defaults;
    [NSUserDefaults.standardUserDefaults setInteger:(NSInteger{1} << 40) forKey:@"maxItems"];
    EXPECT_EQ(defaults.integer(QStringLiteral("maxItems")), std::numeric_limits<int>::max());
    [NSUserDefaults.standardUserDefaults setInteger:-(NSInteger{1} << 40) forKey:@"maxItems"];
    EXPECT_EQ(defaults.integer(QStringLiteral("maxItems")), std::numeric_limits<int>::min());
}

TEST(Recorded, TheAccentIsThatOfTheAppearance) {
    macos::MacAppearance appearance;
    system::setAccent(0.2, 0.4, 1.0);
    EXPECT_EQ(appearance.accentColor(), QColor::fromRgbF(0.2F, 0.4F, 1.0F));
    int told = 0;
    appearance.addChangedHandler([&told] { ++told; });
    system::setDark(true);
    EXPECT_TRUE(appearance.isDark());
    EXPECT_EQ(appearance.accentColor(), QColor::fromRgbF(0.2F, 0.4F, 0.5F));
    EXPECT_EQ(told, 1);
    system::setAccent(1.0, 0.0, 0.0);
    EXPECT_EQ(told, 2);
    system::setReducedMotion(true);
    EXPECT_TRUE(appearance.reducedMotion());
    EXPECT_EQ(told, 3);
    system::setReducedMotion(false);
    system::setDark(false);
    EXPECT_FALSE(appearance.isDark());
    EXPECT_EQ(told, 5);
}

TEST(Recorded, ASymbolIsDrawnInItsWeight) {
    const macos::MacSymbols symbols;
    const std::vector<std::pair<QFont::Weight, const char*>> rows{
        {QFont::Thin, "-0.8"}, {QFont::Light, "-0.4"},   {QFont::Normal, "0"},   {QFont::Medium, "0.23"},
        {QFont::Bold, "0.4"},  {QFont::DemiBold, "0.3"}, {QFont::Black, "0.62"}, {QFont::ExtraBold, "0.56"}};
    for (const auto& [weight, number] : rows) {
        EXPECT_THAT(callsDuring([&, weight = weight] {
                        symbols.pixmap(QStringLiteral("pin"), {.pointSize = 12, .weight = weight, .color = Qt::red});
                    }),
                    ElementsAre(std::string("NSImageSymbolConfiguration pointSize: 12 weight: ") + number,
                                "NSImage imageWithSystemSymbolName: pin accessibilityDescription: nil",
                                "CGBitmapContextCreate bits: 8 info: 0x2002", "NSGraphicsContext flipped: 0"));
    }
}

TEST(Recorded, LinksAreLookedForInTheWholeText) {
    macos::MacLinkDetector detector;
    detector.firstLink({});
    EXPECT_THAT(callsDuring([&] { detector.firstLink(QStringLiteral("🎉 a.org")); }),
                ElementsAre("NSDataDetector firstMatchInString: options: 0 range: 0, 8"));
    EXPECT_EQ(std::ranges::count(system::calls(), "NSDataDetector dataDetectorWithTypes: 0x20"), 1);
}

TEST(Recorded, TheBundleTellsTextsAlone) {
    const macos::MacAppBundle bundle;
    system::setBundle(QStringLiteral("/Volumes/Zamber/Zamber.app"),
                      {{QStringLiteral("CFBundleShortVersionString"), QStringLiteral("1.2.3")}},
                      {{QStringLiteral("CFBundleVersion"), 7}});
    EXPECT_EQ(bundle.path(), QStringLiteral("/Volumes/Zamber/Zamber.app"));
    EXPECT_EQ(bundle.version(), QStringLiteral("1.2.3"));
    EXPECT_EQ(bundle.build(), std::nullopt);
    system::setBundle({}, {{QStringLiteral("CFBundleVersion"), QStringLiteral("8")}});
    EXPECT_EQ(bundle.version(), std::nullopt);
    EXPECT_EQ(bundle.build(), QStringLiteral("8"));
    system::setBundle({}, {});
}

TEST(Recorded, TheHistorysFolderIsTheUsersApplicationSupport) {
    system::setHome(QStringLiteral("/Users/someone"));
    EXPECT_THAT(
        callsDuring([] { EXPECT_EQ(macos::applicationSupportFolder(), "/Users/someone/Library/Application Support"); }),
        ElementsAre("NSFileManager URLsForDirectory: 14 inDomains: 1"));
}

TEST(Recorded, TheDiskImageToolIsAskedInItsOwnWordsAndOutOfTheLog) {
    EXPECT_EQ(macos::MacDiskImageTool::defaultCommand(), QStringLiteral("/usr/bin/hdiutil"));
    StandInDiskImageTool system;
    macos::MacDiskImageTool tool(system.program());
    system.report("<plist version=\"1.0\"><dict/></plist>");
    const QTemporaryDir folder;
    const QByteArray logged = folder.filePath(QStringLiteral("log")).toUtf8();
    // Whatever the tool writes beside its report must not reach our standard output.
    const int before = dup(STDOUT_FILENO);
    ASSERT_NE(std::freopen(logged.constData(), "w", stdout), nullptr);
    tool.attachedImages();
    tool.detach(QStringLiteral("/Volumes/Zamber 1"));
    macos::MacDiskImageTool chatty(QStringLiteral("/bin/echo"));
    chatty.detach(QStringLiteral("/Volumes/Zamber 1"));
    std::fflush(stdout);
    dup2(before, STDOUT_FILENO);
    close(before);
    EXPECT_EQ(system.calls(),
              (QStringList{QStringLiteral("info -plist"), QStringLiteral("detach /Volumes/Zamber 1 -force")}));
    QFile file(QString::fromUtf8(logged));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray());
}

TEST(Recorded, ARepeatingTimerIsOfTheRunLoopAndWaitsWhileAMenuIsOpen) {
    macos::MacScheduler scheduler;
    std::string log;
    EXPECT_THAT(callsDuring([&] { scheduler.every(500ms, [] {}); }),
                ElementsAre("NSTimer scheduledTimerWithTimeInterval: 0.5 repeats: 1"));
    scheduler.every(1ms, [&log] { log += 'e'; });
    scheduler.after(1ms, [&log] { log += 'a'; });
    usleep(5000);
    system::turn(QStringLiteral("tracking"));
    EXPECT_EQ(log, "a");
    system::turn();
    EXPECT_EQ(log, "ae");
}

TEST(Recorded, WhileABlockOfTheMainQueueRunsNoOtherOneDoes) {
    macos::MacScheduler scheduler;
    std::string log;
    scheduler.soon([&] {
        log += '(';
        macos::letPass(20ms); // as an alert would
        log += ')';
    });
    scheduler.soon([&] { log += 's'; });
    macos::letPass(60ms);
    EXPECT_EQ(log, "()s");
}

TEST(Recorded, TheKeyMonitorIsThereWhileSomebodyHasAHandler) {
    macos::MacKeyMonitor monitor;
    EXPECT_THAT(callsDuring([&] {
                    const auto first = monitor.addHandler([](HardwareKey) { return KeyDisposition::PassOn; });
                    const auto second = monitor.addHandler([](HardwareKey) { return KeyDisposition::PassOn; });
                    monitor.removeHandler(first);
                    monitor.removeHandler(second);
                    monitor.addHandler([](HardwareKey) { return KeyDisposition::PassOn; });
                }),
                ElementsAre("NSEvent addLocalMonitorForEventsMatchingMask: 0x400",
                            "NSEvent removeMonitor:", "NSEvent addLocalMonitorForEventsMatchingMask: 0x400"));
}

TEST(Recorded, AWindowIsBroughtToTheUsersSpaceAndThenToTheFront) {
    QWidget window;
    window.show();
    EXPECT_THAT(callsDuring("NS", [&] { macos::bringWindowToFront(window.winId()); }),
                ElementsAre("NSApplication activateIgnoringOtherApps: 1", "NSWindow makeKeyAndOrderFront: behavior 2"));
}

TEST(Recorded, APoolHoldsWhatIsGivenAwayBeforeTheLoop) {
    __weak NSObject* watched = nil;
    void* const pool = macos::openAutoreleasePool();
    NSObject* __autoreleasing const given = [NSObject new];
    watched = given;
    EXPECT_TRUE(watched != nil);
    macos::closeAutoreleasePool(pool);
    EXPECT_TRUE(watched == nil);
}

} // namespace zamber
