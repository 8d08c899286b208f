// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/PreferenceKeys.h"

#include "app/AppDelegate.h"
#include "clipboard/ClipboardManager.h"
#include "tests/fakes/FakeDesktop.h"
#include "update/UpdateManager.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <initializer_list>

namespace zamber::app {

/// A delegate on fakes, not yet launched.
class AppDelegateTest : public testing::Test, protected FakeDesktop {
protected:
    AppDelegateTest() {
        UserDefaults::setStandard(&userDefaults);
        update::UpdateManager::setShared(
            update::UpdateManager::create(scheduler, userDefaults, bundle, workspace, web));
        delegate = std::make_shared<AppDelegate>(portsOf<FakeDesktop>(*this),
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

    /// Starts with quick paste on and a history of these texts; the last one is the newest entry.
    void launchWithQuickPaste(std::initializer_list<const char*> texts) {
        launch();
        write(userDefaults, preferences::quickPasteEnabled, true);
        for (const char* const text : texts) {
            capture(text);
        }
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
    std::shared_ptr<AppDelegate> delegate;
};

} // namespace zamber::app
