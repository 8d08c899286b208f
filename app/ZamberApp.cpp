// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "X11Desktop.h"

#include "app/AppDelegate.h"
#include "clipboard/HistoryFile.h"
#include "platform/UserDefaults.h"
#include "platform/freedesktop/SingleInstance.h"

#include <QApplication>

#include <xcb/xcb.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

/// Asked before Qt is: it ends the process with a core dump where there is no X server.
bool hasXServer() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool isConnected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isConnected;
}

} // namespace

int main(int argc, char** argv) {
    // The log's reader may go away; the program does not end for it.
    std::signal(SIGPIPE, SIG_IGN);
    if (!hasXServer()) {
        std::fputs("zamber: there is no X server to be reached (on Wayland, XWayland has to be running)\n", stderr);
        return EXIT_FAILURE;
    }
    // On Wayland too: the clipboard, the hot keys and the keystroke are spoken over X there.
    qputenv("QT_QPA_PLATFORM", "xcb");
    int noArguments = argc > 0 ? 1 : 0; // there is no command line, not even Qt's own
    QApplication application(noArguments, argv);
    QApplication::setApplicationName(QStringLiteral("Zamber"));
    QApplication::setDesktopFileName(QStringLiteral("app.zamber.Zamber"));

    const zamber::SingleInstance instance(QStringLiteral("app.zamber.Zamber"));
    if (!instance.isOnlyOne()) {
        instance.askOtherToShow();
        return EXIT_SUCCESS;
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
    const auto delegate =
        std::make_shared<zamber::AppDelegate>(ports, zamber::HistoryFile::defaultPath(), zamber::LaunchSteps{});
    delegate->applicationDidFinishLaunching();
    return QApplication::exec();
}
