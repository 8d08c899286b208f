// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "install/DMGCleanup.h"
#include "platform/AppBundle.h"
#include "platform/HotKeyCenter.h"
#include "platform/ImageLimit.h"
#include "platform/PopoverHost.h"
#include "platform/UserDefaults.h"
#include "settings/SettingsWindow.h"
#include "update/UpdateManager.h"

#include <QApplication>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#if defined(__APPLE__) || defined(ZAMBER_MACOS_STAND_INS)
#include "platform/macos/MacDesktop.h"
using ChosenDesktop = zamber::macos::MacDesktop;
#else
#include "app/SessionDesktop.h"
using ChosenDesktop = zamber::app::SessionDesktop;
#endif

namespace {

/// A standard stream that is closed would become the next file that is opened, and the log would go into that.
void keepStandardStreamsOpen() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) {
            open("/dev/null", O_RDWR); // takes the lowest number that is free
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    keepStandardStreamsOpen();
    std::optional<ChosenDesktop::StartUp> startUp(std::in_place);
    // A program that reads the log through a pipe may end before this one.
    std::signal(SIGPIPE, SIG_IGN);
    if (const auto prepared = ChosenDesktop::prepare(); !prepared) {
        std::fprintf(stderr, "zamber: %s\n", prepared.error().c_str());
        return EXIT_FAILURE;
    }
    zamber::raiseImageLimit();
    int noArguments = argc > 0 ? 1 : 0; // there is no command line, not even Qt's own
    const QApplication application(noArguments, argv);
    QApplication::setApplicationName(QStringLiteral("Zamber"));
    QApplication::setDesktopFileName(QStringLiteral("app.zamber.Zamber"));

    auto desktop = ChosenDesktop::create();
    if (!desktop) {
        std::fprintf(stderr, "zamber: %s\n", desktop.error().c_str());
        return EXIT_FAILURE;
    }
    if (!*desktop) {
        return EXIT_SUCCESS; // another one runs already and shows itself
    }
    const zamber::Desktop ports = (*desktop)->ports();
    zamber::UserDefaults::setStandard(&ports.userDefaults);
    zamber::update::UpdateManager::setShared(zamber::update::UpdateManager::create(
        ports.scheduler, ports.userDefaults, ports.bundle, ports.workspace, ports.web));
    zamber::settings::SettingsWindow settings(ports.symbols, ports.appearance,
                                              {.defaults = ports.userDefaults,
                                               .loginItem = ports.loginItem,
                                               .trust = ports.trust,
                                               .workspace = ports.workspace,
                                               .bundle = ports.bundle,
                                               .updates = zamber::update::UpdateManager::shared(),
                                               .commandKeyHint = ports.hotKeys.commandKeyHint(),
                                               .desktopShortcut = ports.desktopShortcut},
                                              [&desktop](WId window) { (*desktop)->bringToFront(window); });
    // The popover's keys must not work on the history while the user types in the settings.
    QObject::connect(&settings, &zamber::settings::SettingsWindow::cameToFront, &settings,
                     [ports] { ports.popover.performClose(); });
    for (const auto& action : {QStringLiteral("showSettingsWindow:"), QStringLiteral("showPreferencesWindow:")}) {
        (*desktop)->setResponder(action, [&settings] { settings.show(); });
    }
    std::function<void()> checkAndPromptMove;
    if (ports.diskImages) {
        checkAndPromptMove = [ports] {
            zamber::install::DMGCleanup::checkAndPromptMove({.bundle = ports.bundle,
                                                             .alert = ports.alert,
                                                             .files = ports.diskImages->files,
                                                             .images = ports.diskImages->tool,
                                                             .workspace = ports.workspace,
                                                             .application = ports.application,
                                                             .scheduler = ports.scheduler});
        };
    }
    const auto delegate =
        std::make_shared<zamber::app::AppDelegate>(ports, ChosenDesktop::historyFile(), std::move(checkAndPromptMove));
    delegate->applicationDidFinishLaunching();
    startUp.reset();
    const int status = QApplication::exec();
    zamber::update::UpdateManager::setShared(nullptr); // before the desktop, whose ports it refers to
    return status;
}
