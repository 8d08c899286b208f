// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/AccessibilityTrustContract.h"
#include "tests/contracts/ApplicationContract.h"
#include "tests/contracts/HotKeyCenterContract.h"
#include "tests/contracts/KeystrokePosterContract.h"
#include "tests/contracts/ServedClipboardContract.h"
#include "tests/contracts/StatusItemContract.h"
#include "tests/contracts/WorkspaceContract.h"
#include "tests/fakes/FakeAccessibilityTrust.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeHotKeyCenter.h"
#include "tests/fakes/FakeKeystrokePoster.h"
#include "tests/fakes/FakeStatusItem.h"
#include "tests/fakes/FakeWorkspace.h"

#include <algorithm>
#include <vector>

namespace zamber {

namespace {

/// The fakes act at once, so that a condition holds now or never.
struct FakeRig {
    Journal journal;

    bool waitUntil(const std::function<bool()>& condition) { return condition(); }
};

struct FakeApplicationRig : FakeRig {
    FakeApplication fake{journal};

    Application& application() { return fake; }
    void respondTo(const QString& name, std::function<void()> responder) { fake.respondTo(name, std::move(responder)); }
    void observe(const QString& name, std::function<void()> observer) { fake.observe(name, std::move(observer)); }
    bool run(const std::function<void()>& first) {
        first();
        return fake.isTerminated;
    }
};

struct FakeWorkspaceRig : FakeRig {
    FakeWorkspace fake{journal};
    std::vector<RunningApplication> opened;

    Workspace& workspace() { return fake; }
    int openApplication(const char* name) {
        opened.push_back(fake.launch(QString::fromLatin1(name)));
        fake.bringToFront(opened.back());
        return static_cast<int>(opened.size()) - 1;
    }
    void closeApplication(int number) { fake.quit(opened[number]); }
    void bringToFront(int number) { fake.bringToFront(opened[number]); }
    bool isInFront(int number) { return fake.front() == opened[number]; }
    void settle() {}
    bool wasOpened(const QUrl& address) {
        return std::ranges::count(journal.entries(), "open " + address.toString().toStdString()) == 1;
    }
};

struct FakeHotKeyCenterRig : FakeRig {
    FakeHotKeyCenter fake{journal};

    HotKeyCenter& center() { return fake; }
    void press(PhysicalKey key) { fake.press(key); }
    void pressWithLocks(PhysicalKey key) { fake.press(key); }
    void pressAlone(PhysicalKey /*key*/) {}
    void takeElsewhere(PhysicalKey key) { fake.takeElsewhere(key); }
};

struct FakeKeystrokePosterRig : FakeRig {
    FakeWorkspace workspace{journal};
    FakeKeystrokePoster fake{journal, workspace};

    KeystrokePoster& poster() { return fake; }
    RunningApplication openApplication() {
        const RunningApplication application = workspace.launch(QStringLiteral("Editor"));
        workspace.bringToFront(application);
        return application;
    }
    void closeApplication(const RunningApplication& application) { workspace.quit(application); }
    int writeClipboard() {
        fake.clipboardIsOurs = true;
        return 1;
    }
    void copyElsewhere() { fake.clipboardIsOurs = false; }
    void settle() {}
    int pastesReceived(const RunningApplication& application) {
        return static_cast<int>(std::ranges::count(fake.received, application));
    }
};

struct FakeStatusItemRig : FakeRig {
    FakeStatusItem fake{journal};
    bool isOpen = false;

    StatusItem& item() { return fake; }
    void click(MouseButton button) {
        const qsizetype before = fake.shownMenus.size();
        fake.click(button);
        isOpen = fake.shownMenus.size() > before;
    }
    void chooseFirst() {
        isOpen = false;
        fake.shownMenus.last().first().action();
    }
    bool isMenuOpen() const { return isOpen; }
};

struct FakeAccessibilityTrustRig {
    FakeAccessibilityTrust fake;

    AccessibilityTrust& trust() { return fake; }
    bool canPost() const { return fake.isGranted; }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AccessibilityTrustContract, FakeAccessibilityTrustRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ApplicationContract, FakeApplicationRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, HotKeyCenterContract, FakeHotKeyCenterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, KeystrokePosterContract, FakeKeystrokePosterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ServedClipboardContract, FakeKeystrokePosterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, StatusItemContract, FakeStatusItemRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, WorkspaceContract, FakeWorkspaceRig);

} // namespace zamber
