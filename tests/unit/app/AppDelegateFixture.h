// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/PreferenceKeys.h"

#include "app/AppDelegate.h"
#include "clipboard/ClipboardManager.h"
#include "tests/fakes/FakeAccessibilityTrust.h"
#include "tests/fakes/FakeAlert.h"
#include "tests/fakes/FakeAppBundle.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeHotKeyCenter.h"
#include "tests/fakes/FakeKeyMonitor.h"
#include "tests/fakes/FakeKeystrokePoster.h"
#include "tests/fakes/FakeLinkDetector.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakePopoverHost.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeStatusItem.h"
#include "tests/fakes/FakeSymbols.h"
#include "tests/fakes/FakeSystemSound.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/fakes/FakeWorkspace.h"
#include "update/UpdateManager.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zamber::app {

/// A delegate on fakes, not yet launched.
class AppDelegateTest : public testing::Test {
protected:
    AppDelegateTest() {
        UserDefaults::setStandard(&defaults);
        // Nobody answers there, and nobody outside of the machine is asked.
        update::UpdateManager::setShared(update::UpdateManager::create(scheduler, defaults, bundle, workspace, {},
                                                                       QStringLiteral("http://127.0.0.1:9")));
        delegate = std::make_shared<AppDelegate>(Desktop{.application = application,
                                                         .pasteboard = pasteboard,
                                                         .workspace = workspace,
                                                         .hotKeys = hotKeys,
                                                         .keystrokes = keystrokes,
                                                         .keyMonitor = keyMonitor,
                                                         .trust = trust,
                                                         .statusItem = statusItem,
                                                         .popover = popover,
                                                         .appearance = appearance,
                                                         .symbols = symbols,
                                                         .sounds = sounds,
                                                         .loginItem = loginItem,
                                                         .links = links,
                                                         .bundle = bundle,
                                                         .alert = alert,
                                                         .userDefaults = defaults,
                                                         .scheduler = scheduler},
                                                 folder.filePath(QStringLiteral("history.json")).toStdString(),
                                                 [this] { journal.note("check and prompt move"); });
    }

    ~AppDelegateTest() override {
        update::UpdateManager::setShared(nullptr);
        UserDefaults::setStandard(nullptr);
    }

    void launch() {
        delegate->applicationDidFinishLaunching();
        journal.clear();
    }

    /// A text that another program copies, captured by the next look at the clipboard.
    void capture(const QByteArray& text) {
        pasteboard.copyText(text);
        scheduler.advance(std::chrono::milliseconds(500));
    }

    RunningApplication openInFront(const char* name) {
        const RunningApplication app = workspace.launch(QString::fromLatin1(name));
        workspace.bringToFront(app);
        return app;
    }

    QList<MenuItem> openMenu() {
        statusItem.click(MouseButton::Right);
        return statusItem.shownMenus.last();
    }

    void choose(int index) {
        const auto items = delegate->clipboardManager->filteredItems();
        delegate->clipboardManager->copyToClipboard(items[index]);
        delegate->clipboardManager->onPaste();
    }

    QTemporaryDir folder;
    Journal journal;
    FakeApplication application{journal};
    FakePasteboard pasteboard;
    FakeWorkspace workspace{journal};
    FakeHotKeyCenter hotKeys{journal};
    FakeKeystrokePoster keystrokes{journal, workspace};
    FakeKeyMonitor keyMonitor;
    FakeAccessibilityTrust trust;
    FakeStatusItem statusItem{journal};
    FakePopoverHost popover{journal};
    FakeAppearance appearance;
    FakeSymbols symbols;
    FakeSystemSound sounds{journal};
    FakeLoginItem loginItem;
    FakeLinkDetector links;
    FakeAppBundle bundle;
    FakeAlert alert{journal};
    FakeUserDefaults defaults{journal};
    FakeScheduler scheduler;
    std::shared_ptr<AppDelegate> delegate;
};

} // namespace zamber::app
