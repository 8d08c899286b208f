// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandDesktop.h"

#include "platform/freedesktop/QtApplication.h"
#include "platform/freedesktop/TextFieldPaste.h"
#include "platform/freedesktop/popover/PopoverWindow.h"
#include "platform/freedesktop/tray/TrayClicks.h"
#include "platform/freedesktop/tray/TrayIcon.h"
#include "platform/wayland/Connection.h"
#include "platform/wayland/DataControl.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "platform/x11/ButtonPresses.h"
#include "platform/x11/Connection.h"
#include "platform/x11/Keyboard.h"
#include "platform/x11/Windows.h"
#include "platform/x11/X11AccessibilityTrust.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "platform/x11/X11KeystrokePoster.h"
#include "platform/x11/X11WindowSystem.h"
#include "platform/x11/X11Workspace.h"

#include <QApplication>

#include <utility>

namespace zamber::wayland {

namespace {

void closeMenus() {
    while (QWidget* const menu = QApplication::activePopupWidget()) {
        menu->close();
    }
}

} // namespace

struct WaylandDesktop::Adapters : freedesktop::desktop::CommonAdapters {
    Adapters(freedesktop::desktop::Claim claim, std::unique_ptr<Connection> compositor,
             std::unique_ptr<x11::Connection> xwayland)
        : CommonAdapters(std::move(claim))
        , clipboardConnection(std::move(compositor))
        , x11Connection(std::move(xwayland)) {
        QObject::connect(claimed.instance.get(), &freedesktop::session::SingleInstance::showRequested,
                         claimed.instance.get(), [this] { application.requestShow(); });
    }

    ~Adapters() { stop(); }

    Adapters(const Adapters&) = delete;
    Adapters& operator=(const Adapters&) = delete;

    void bringToFront(WId window) const { windows.activate(static_cast<xcb_window_t>(window)); }

    std::unique_ptr<Connection> clipboardConnection;
    std::unique_ptr<x11::Connection> x11Connection;

    WaylandPasteboard pasteboard{*clipboardConnection};
    x11::Keyboard keyboard{*x11Connection};
    x11::Windows windows{*x11Connection};
    x11::ButtonPresses presses{*x11Connection};
    x11::X11WindowSystem windowSystem{*x11Connection, windows};
    x11::X11HotKeyCenter hotKeys{*x11Connection, keyboard, closeMenus};
    x11::X11Workspace workspace{*x11Connection, windows, [this](const QString& windowClass) {
                                    return applicationNames.ofWindowClass(windowClass);
                                }};
    x11::X11KeystrokePoster keystrokes{*x11Connection, keyboard, windows, hotKeys, workspace, pasteboard};
    x11::X11AccessibilityTrust trust{*x11Connection};

    freedesktop::QtApplication application{[this](WId window) { bringToFront(window); }};
    freedesktop::TextFieldPaste textFieldPaste{pasteboard};
    freedesktop::popover::PopoverWindow popover{appearance, windowSystem};
    freedesktop::tray::TrayClicks trayClicks{popover, presses, scheduler};
    freedesktop::tray::TrayIcon statusItem{trayClicks, windowSystem, hotKeys.commandKeyHint()};
};

std::unique_ptr<Connection> WaylandDesktop::reachCompositor() {
    auto connection = Connection::open();
    return connection && DataControl::isOffered(**connection) ? std::move(*connection) : nullptr;
}

std::expected<std::unique_ptr<WaylandDesktop>, std::string>
WaylandDesktop::create(freedesktop::desktop::Claim claim, std::unique_ptr<Connection> compositor) {
    auto xwayland = x11::Connection::open();
    if (!xwayland) {
        return std::unexpected(xwayland.error());
    }
    auto adapters = std::make_unique<Adapters>(std::move(claim), std::move(compositor), std::move(*xwayland));
    return std::unique_ptr<WaylandDesktop>(new WaylandDesktop(std::move(adapters)));
}

WaylandDesktop::WaylandDesktop(std::unique_ptr<Adapters> adapters)
    : m_adapters(std::move(adapters)) {}

WaylandDesktop::~WaylandDesktop() = default;

void WaylandDesktop::setResponder(const QString& action, std::function<void()> responder) {
    m_adapters->application.setResponder(action, std::move(responder));
}

void WaylandDesktop::bringToFront(WId window) {
    m_adapters->bringToFront(window);
}

Desktop WaylandDesktop::ports() {
    Desktop ports = portsOf(*m_adapters);
    ports.desktopShortcut = m_adapters->desktopShortcut.get();
    return ports;
}

} // namespace zamber::wayland
