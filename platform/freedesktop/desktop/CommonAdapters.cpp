// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/desktop/CommonAdapters.h"

#include "platform/freedesktop/session/UserFolders.h"

#include <QApplication>
#include <QThreadPool>
#include <QWidget>

#include <chrono>
#include <utility>

namespace zamber::freedesktop::desktop {

namespace {

QString quickPaste() {
    return QStringLiteral("quickPasteEnabled");
}

} // namespace

std::filesystem::path historyFile() {
    return session::userDataFolder() / "Zamber" / "clipboard_history.json";
}

std::expected<std::optional<Claim>, std::string> claim() {
    auto instance = std::make_unique<session::SingleInstance>(QStringLiteral("app.zamber.Zamber"));
    switch (instance->start()) {
    case session::SingleInstance::Start::OnlyOne:
        break;
    case session::SingleInstance::Start::OtherShown:
        return std::nullopt;
    case session::SingleInstance::Start::OtherHangs:
        return std::unexpected("it is running already, but does not answer");
    }
    // Without a bus, or with one in each of the user's sessions, nobody else keeps two from writing one history. One
    // that is just ending gets a moment.
    auto historyLock = session::FileLock::take(historyFile(), std::chrono::seconds(1));
    if (!historyLock) {
        return std::unexpected("it is running already, in another session: " + historyFile().string() + " is in use");
    }
    return Claim{.instance = std::move(instance), .historyLock = std::move(historyLock)};
}

CommonAdapters::CommonAdapters(Claim claim)
    : claimed(std::move(claim))
    , loginItem(session::XdgLoginItem::sessionEnvironment(), QStringLiteral("app.zamber.Zamber"),
                QCoreApplication::applicationFilePath())
    , desktopShortcut(
          session::desktopShortcutOf(qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts),
                                     QCoreApplication::applicationFilePath())) {}

bool CommonAdapters::isHotKeyWanted(PhysicalKey key) const {
    return key == PhysicalKey::V || userDefaults.boolean(quickPaste()).value_or(false);
}

void CommonAdapters::observeHotKeys(std::function<void()> changed) {
    userDefaults.addObserver(quickPaste(), std::move(changed));
}

void CommonAdapters::stop() {
    QThreadPool::globalInstance()->clear();
    QThreadPool::globalInstance()->waitForDone();
    scheduler.stop();
}

void closeMenus() {
    while (QWidget* const menu = QApplication::activePopupWidget()) {
        menu->close();
    }
}

} // namespace zamber::freedesktop::desktop
