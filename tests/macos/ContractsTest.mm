// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// The suites whose rigs play the user and other programs: on a Mac they would type into whatever is in front and fill
// the Trash, so that they run on the stand-ins alone.

#include "platform/macos/MacHotKeyCenter.h"
#include "platform/macos/MacKeystrokePoster.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacPasteboard.h"
#include "platform/macos/MacStatusItem.h"
#include "platform/macos/MacWorkspace.h"
#include "tests/contracts/HotKeyCenterContract.h"
#include "tests/contracts/KeystrokePosterContract.h"
#include "tests/contracts/LoginItemContract.h"
#include "tests/contracts/StatusItemContract.h"
#include "tests/contracts/WorkspaceContract.h"
#include "tests/contracts/WorkspaceFilesContract.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"
#include "tests/macos/system/Programs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

namespace zamber::macos {

namespace {

/// Long enough for whatever the stand-ins do later, and short where nothing is to come.
constexpr std::chrono::milliseconds PATIENCE{300};

/// For other threads and programs, which go by the machine's time.
constexpr std::chrono::seconds MACHINES_PATIENCE{10};

struct StandInRig {
    bool waitUntil(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + MACHINES_PATIENCE;
        bool wasAnotherAtWork = false;
        do {
            wasAnotherAtWork = system::isAnotherAtWork();
            if (zamber::macos::waitUntil(condition, PATIENCE)) {
                return true;
            }
        } while (wasAnotherAtWork && std::chrono::steady_clock::now() < end);
        return false;
    }
};

struct MacLoginItemRig {
    MacLoginItem real;

    MacLoginItemRig() { system::setLoginItemStatus(static_cast<int>(LoginItemStatus::NotRegistered)); }
    ~MacLoginItemRig() { system::failLoginItem(false); }

    LoginItem& item() { return real; }
    void switchOff() { system::setLoginItemStatus(static_cast<int>(LoginItemStatus::RequiresApproval)); }
    void breakRecord() { system::failLoginItem(true); }
};

struct MacWorkspaceRig : StandInRig {
    MacWorkspace real;
    std::size_t firstCall = system::calls().size();

    MacWorkspaceRig() { system::bringApplicationToFront(0); }

    Workspace& workspace() { return real; }
    int openApplication(const char* name) { return system::openApplication(name); }
    void closeApplication(int number) { system::quitApplication(number); }
    void bringToFront(int number) { system::bringApplicationToFront(number); }
    bool isInFront(int number) { return system::applicationInFront() == number; }
    void settle() {
        letPass(PATIENCE); // the stand-ins have no end of their work that they could tell
    }
    bool wasOpened(const QUrl& address) {
        return std::count(system::calls().begin() + static_cast<std::ptrdiff_t>(firstCall), system::calls().end(),
                          "NSWorkspace openURL: " + address.toString().toStdString()) == 1;
    }
};

struct MacWorkspaceFilesRig : StandInRig {
    QTemporaryDir home;
    MacWorkspace real;

    MacWorkspaceFilesRig() { system::setHome(home.path()); }

    Workspace& workspace() { return real; }
    QString write(const QString& name, const QByteArray& bytes) {
        QFile file(home.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName();
    }
    /// Each start leaves a file that is named after the process.
    QString makeProgram() { return write(QStringLiteral("Program"), "#!/bin/sh\n:>\"$0.started.$$\"\n"); }
    QString makeFile() { return write(QStringLiteral("One.dmg"), "image"); }
    int starts(const QString& program) {
        const QFileInfo file(program);
        return static_cast<int>(file.dir().entryList({file.fileName() + QStringLiteral(".started.*")}).size());
    }
    bool isTrashed(const QString& path) {
        return !QFile::exists(path) &&
               QFile::exists(home.filePath(QStringLiteral(".Trash/")) + QFileInfo(path).fileName());
    }
};

struct MacHotKeyCenterRig : StandInRig {
    MacHotKeyCenter real;

    ~MacHotKeyCenterRig() {
        letPass(); // what was pressed last
        system::forgetHotKeys();
    }

    HotKeyCenter& center() { return real; }
    static unsigned codeOf(PhysicalKey key) {
        switch (key) {
        case PhysicalKey::V:
            return 9;
        case PhysicalKey::Digit2:
            return 19;
        case PhysicalKey::Digit3:
            return 20;
        }
        return 0;
    }
    void press(PhysicalKey key) { system::pressHotKey(codeOf(key), 0x300); }
    void pressWithLocks(PhysicalKey key) { press(key); } // the event manager leaves the locks out
    void pressAlone(PhysicalKey key) { system::pressHotKey(codeOf(key), 0); }
    void takeElsewhere(PhysicalKey key) { system::holdHotKeyElsewhere(codeOf(key), true); }
};

struct MacKeystrokePosterRig : StandInRig {
    MacWorkspace workspace;
    MacPasteboard pasteboard;
    MacKeystrokePoster real;
    std::map<std::uint64_t, int> numbers;

    KeystrokePoster& poster() { return real; }
    RunningApplication openApplication() {
        const int number = system::openApplication("Editor");
        const RunningApplication application = workspace.frontmostApplication().value();
        numbers[application.handle] = number;
        return application;
    }
    void closeApplication(const RunningApplication& application) {
        system::quitApplication(numbers.at(application.handle));
    }
    int writeClipboard() {
        pasteboard.clearContents();
        pasteboard.setString("ours");
        return pasteboard.changeCount();
    }
    int pastesReceived(const RunningApplication& application) {
        return system::pastesReceived(numbers.at(application.handle));
    }
};

/// A menu keeps its caller until it is closed, so that the user's right click is on a thread of its own. It and the
/// test take turns: while one runs, the other waits.
struct MacStatusItemRig : StandInRig {
    MacStatusItem real;

    MacStatusItemRig() {
        system::setMenuChoice([this](const auto&) {
            std::unique_lock lock(mutex);
            isOpen = true;
            isChanged.notify_all();
            isChanged.wait(lock, [this] { return choice.has_value(); });
            isOpen = false;
            return *std::exchange(choice, std::nullopt);
        });
    }
    ~MacStatusItemRig() {
        if (isMenuOpen()) {
            choose(NOTHING);
        }
        system::setMenuChoice([](const auto&) { return NOTHING; });
    }

    StatusItem& item() { return real; }
    void click(MouseButton button) {
        if (button == MouseButton::Left) {
            system::clickStatusItem(system::Click::Left);
            return;
        }
        isOver = false;
        user = std::thread([this] {
            system::clickStatusItem(system::Click::Right);
            const std::lock_guard lock(mutex);
            isOver = true;
            isChanged.notify_all();
        });
        std::unique_lock lock(mutex);
        isChanged.wait(lock, [this] { return isOpen || isOver; });
        if (isOver) { // it showed no menu
            lock.unlock();
            user.join();
        }
    }
    void chooseFirst() { choose(0); }
    bool isMenuOpen() {
        const std::lock_guard lock(mutex);
        return isOpen;
    }

private:
    static constexpr int NOTHING = -1;

    void choose(int line) {
        {
            const std::lock_guard lock(mutex);
            choice = line;
            isChanged.notify_all();
        }
        user.join();
    }

    std::mutex mutex;
    std::condition_variable isChanged;
    bool isOpen = false;
    bool isOver = false;
    std::optional<int> choice;
    std::thread user;
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, LoginItemContract, MacLoginItemRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, WorkspaceContract, MacWorkspaceRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, WorkspaceFilesContract, MacWorkspaceFilesRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, HotKeyCenterContract, MacHotKeyCenterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, KeystrokePosterContract, MacKeystrokePosterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, StatusItemContract, MacStatusItemRig);

} // namespace zamber::macos
