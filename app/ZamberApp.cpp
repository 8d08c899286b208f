// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "X11Desktop.h"

#include "app/AppDelegate.h"
#include "clipboard/HistoryFile.h"
#include "install/DMGCleanup.h"
#include "platform/AppBundle.h"
#include "platform/HotKeyCenter.h"
#include "platform/UserDefaults.h"
#include "platform/freedesktop/SingleInstance.h"
#include "settings/SettingsWindow.h"
#include "update/UpdateManager.h"

#include <QApplication>

#include <fcntl.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

/// A standard stream that is closed would become the next file that is opened, and the log would go into that.
void keepStandardStreamsOpen() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) {
            open("/dev/null", O_RDWR); // takes the lowest number that is free
        }
    }
}

/// Asked before Qt is: it ends the process with a core dump where there is no X server.
bool hasXServer() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool isConnected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isConnected;
}

} // namespace

int main(int argc, char** argv) {
    keepStandardStreamsOpen();
    // The log's reader may go away; the program does not end for it.
    std::signal(SIGPIPE, SIG_IGN);
    if (!hasXServer()) {
        std::fputs("zamber: there is no X server to be reached (on Wayland, XWayland has to be running)\n", stderr);
        return EXIT_FAILURE;
    }
    // On Wayland too: the clipboard, the hot keys and the keystroke are spoken over X there.
    qputenv("QT_QPA_PLATFORM", "xcb");
    // A frame is painted when something has changed, not five milliseconds later.
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
    int noArguments = argc > 0 ? 1 : 0; // there is no command line, not even Qt's own
    QApplication application(noArguments, argv);
    QApplication::setApplicationName(QStringLiteral("Zamber"));
    QApplication::setDesktopFileName(QStringLiteral("app.zamber.Zamber"));

    zamber::SingleInstance instance(QStringLiteral("app.zamber.Zamber"));
    switch (instance.start()) {
    case zamber::SingleInstance::Start::OnlyOne:
        break;
    case zamber::SingleInstance::Start::OtherShown:
        return EXIT_SUCCESS;
    case zamber::SingleInstance::Start::OtherHangs:
        std::fputs("zamber: it is running already, but does not answer\n", stderr);
        return EXIT_FAILURE;
    }

    auto desktop = zamber::X11Desktop::create();
    if (!desktop) {
        std::fprintf(stderr, "zamber: %s\n", desktop.error().c_str());
        return EXIT_FAILURE;
    }
    QObject::connect(&instance, &zamber::SingleInstance::showRequested, &application,
                     [&desktop] { (*desktop)->requestShow(); });
    const zamber::Desktop ports = (*desktop)->ports();
    zamber::UserDefaults::setStandard(&ports.userDefaults);
    zamber::UpdateManager::setShared(
        zamber::UpdateManager::create(ports.scheduler, ports.userDefaults, ports.bundle, ports.workspace));
    zamber::SettingsWindow settings(ports.symbols, ports.appearance,
                                    {.defaults = ports.userDefaults,
                                     .loginItem = ports.loginItem,
                                     .trust = ports.trust,
                                     .workspace = ports.workspace,
                                     .bundle = ports.bundle,
                                     .updates = zamber::UpdateManager::shared(),
                                     .commandKeyHint = ports.hotKeys.commandKeyHint()},
                                    [&desktop](WId window) { (*desktop)->bringToFront(window); });
    (*desktop)->setResponder(QStringLiteral("showSettingsWindow:"), [&settings] { settings.show(); });
    const auto delegate = std::make_shared<zamber::AppDelegate>(
        ports, zamber::HistoryFile::defaultPath(),
        zamber::LaunchSteps{.startPeriodicChecks = [] { zamber::UpdateManager::shared().startPeriodicChecks(); },
                            .checkAndPromptMove =
                                [ports] {
                                    zamber::DMGCleanup::checkAndPromptMove({.bundle = ports.bundle,
                                                                            .alert = ports.alert,
                                                                            .files = ports.files,
                                                                            .images = ports.images,
                                                                            .workspace = ports.workspace,
                                                                            .application = ports.application,
                                                                            .scheduler = ports.scheduler});
                                }});
    delegate->applicationDidFinishLaunching();
    const int status = QApplication::exec();
    zamber::UpdateManager::setShared(nullptr); // before what it refers to
    return status;
}
