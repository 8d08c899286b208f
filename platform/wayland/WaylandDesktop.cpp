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
#include "platform/wayland/FakeKeyboard.h"
#include "platform/wayland/KGlobalAccelHotKeyCenter.h"
#include "platform/wayland/PlasmaLayout.h"
#include "platform/wayland/SeatKeyboard.h"
#include "platform/wayland/SwayConnection.h"
#include "platform/wayland/SwayHotKeyCenter.h"
#include "platform/wayland/ToplevelWorkspace.h"
#include "platform/wayland/Toplevels.h"
#include "platform/wayland/VirtualKeyboard.h"
#include "platform/wayland/VirtualKeyboardTrust.h"
#include "platform/wayland/VirtualKeystrokePoster.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "platform/x11/ButtonPresses.h"
#include "platform/x11/Connection.h"
#include "platform/x11/Keyboard.h"
#include "platform/x11/OwnerDeaths.h"
#include "platform/x11/SecretMark.h"
#include "platform/x11/Windows.h"
#include "platform/x11/X11AccessibilityTrust.h"
#include "platform/x11/X11EmbeddedIcon.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "platform/x11/X11KeystrokePoster.h"
#include "platform/x11/X11WindowSystem.h"
#include "platform/x11/X11Workspace.h"

#include <cstdio>
#include <optional>
#include <utility>

namespace zamber::wayland {

namespace {

/// The preference for quick paste. While it is off, its two hot keys are left to the user.
QString quickPaste() {
    return QStringLiteral("quickPasteEnabled");
}

} // namespace

/// Hot keys, the paste keystroke and the application in front come from the compositor where it has protocols for them,
/// else from XWayland, which knows only programs of X. The pasteboard has its own connection, so that a large transfer
/// does not delay a keystroke.
struct WaylandDesktop::Adapters : freedesktop::desktop::CommonAdapters {
    struct Connections {
        std::unique_ptr<Connection> clipboard;
        std::unique_ptr<Connection> input;
        std::unique_ptr<x11::Connection> xwayland;
    };

    Adapters(freedesktop::desktop::Claim claim, Connections opened)
        : CommonAdapters(std::move(claim))
        , connections(std::move(opened)) {
        QObject::connect(claimed.instance.get(), &freedesktop::session::SingleInstance::showRequested,
                         claimed.instance.get(), [this] { application.requestShow(); });
        QObject::connect(&ownerDeaths, &x11::OwnerDeaths::ownerDied, &pasteboard, &WaylandPasteboard::checkOwner);
        if (plasmaHotKeys && !typing) {
            std::fputs(
                "zamber: KWin lets Zamber paste into other programs only when it is installed: its desktop entry "
                "asks for that, and names the program by its whole path\n",
                stderr);
        }
        userDefaults.addObserver(quickPaste(), [this] {
            if (swayHotKeys) {
                swayHotKeys->update();
            }
            if (plasmaHotKeys) {
                plasmaHotKeys->update();
            }
        });
    }

    ~Adapters() { stop(); }

    Adapters(const Adapters&) = delete;
    Adapters& operator=(const Adapters&) = delete;

    void bringToFront(WId window) const { windows.activate(static_cast<xcb_window_t>(window)); }

    bool isWanted(PhysicalKey key) const {
        return key == PhysicalKey::V || userDefaults.boolean(quickPaste()).value_or(false);
    }

    std::optional<QString> nameOf(const QString& applicationId) {
        return applicationNames.ofWindowClass(applicationId);
    }

    Connections connections;
    x11::SecretMark secretMark{*connections.xwayland};
    WaylandPasteboard pasteboard{*connections.clipboard,
                                 [this](const std::vector<QByteArray>& types, x11::SecretMark::Answer answer) {
                                     secretMark.ask(types, std::move(answer));
                                 }};
    x11::OwnerDeaths ownerDeaths{*connections.xwayland};

    x11::Keyboard keyboard{*connections.xwayland};
    x11::Windows windows{*connections.xwayland};
    x11::ButtonPresses presses{*connections.xwayland};
    x11::X11WindowSystem windowSystem{*connections.xwayland, windows};
    x11::X11HotKeyCenter x11HotKeys{*connections.xwayland, keyboard, freedesktop::desktop::closeMenus};
    x11::X11Workspace x11Workspace{*connections.xwayland, windows,
                                   [this](const QString& windowClass) { return nameOf(windowClass); }};
    x11::X11KeystrokePoster x11Keystrokes{*connections.xwayland, keyboard,   windows,  x11HotKeys,
                                          x11Workspace,          pasteboard, scheduler};
    x11::X11AccessibilityTrust x11Trust{*connections.xwayland};

    std::unique_ptr<SwayConnection> sway = SwayConnection::open();
    std::unique_ptr<SwayHotKeyCenter> swayHotKeys =
        sway ? std::make_unique<SwayHotKeyCenter>(
                   *sway, [this](PhysicalKey key) { return isWanted(key); }, freedesktop::desktop::closeMenus)
             : nullptr;
    std::unique_ptr<SeatKeyboard> seatKeyboard = SeatKeyboard::create(*connections.input);
    std::unique_ptr<KGlobalAccelHotKeyCenter> plasmaHotKeys =
        !sway && seatKeyboard && KGlobalAccelHotKeyCenter::isOffered()
            ? std::make_unique<KGlobalAccelHotKeyCenter>(
                  *seatKeyboard, [this](PhysicalKey key) { return isWanted(key); }, freedesktop::desktop::closeMenus)
            : nullptr;
    HotKeyCenter& hotKeys = swayHotKeys     ? static_cast<HotKeyCenter&>(*swayHotKeys)
                            : plasmaHotKeys ? static_cast<HotKeyCenter&>(*plasmaHotKeys)
                                            : x11HotKeys;

    /// Both or neither: a keystroke is typed when the right window is in front.
    struct Typing {
        std::unique_ptr<Toplevels> toplevels;
        std::unique_ptr<PasteKeyboard> keyboard;
        std::unique_ptr<ToplevelWorkspace> workspace;
        std::unique_ptr<VirtualKeystrokePoster> keystrokes;
        VirtualKeyboardTrust trust;
    };
    std::optional<Typing> typing = makeTyping();
    Workspace& workspace = typing ? static_cast<Workspace&>(*typing->workspace) : x11Workspace;
    KeystrokePoster& keystrokes = typing ? static_cast<KeystrokePoster&>(*typing->keystrokes) : x11Keystrokes;
    NotInstalledTrust notInstalledTrust; // KWin's, which would let an installed program type
    AccessibilityTrust& trust = typing          ? static_cast<AccessibilityTrust&>(typing->trust)
                                : plasmaHotKeys ? static_cast<AccessibilityTrust&>(notInstalledTrust)
                                                : x11Trust;

    freedesktop::QtApplication application{[this](WId window) { bringToFront(window); }};
    freedesktop::TextFieldPaste textFieldPaste{pasteboard};
    freedesktop::popover::PopoverWindow popover{appearance, windowSystem};
    freedesktop::tray::TrayClicks trayClicks{popover, presses, scheduler};
    x11::X11EmbeddedIcon embeddedIcon{*connections.xwayland};
    freedesktop::tray::TrayIcon statusItem{trayClicks, &embeddedIcon, windowSystem, hotKeys.commandKeyHint()};

private:
    std::optional<Typing> makeTyping() {
        auto toplevels = Toplevels::create(*connections.input);
        std::unique_ptr<PasteKeyboard> ownKeyboard = VirtualKeyboard::create(*connections.input);
        if (!ownKeyboard && seatKeyboard) {
            ownKeyboard =
                FakeKeyboard::create(*connections.input, *seatKeyboard, activePlasmaLayout, plasmaHotKeys.get());
        }
        if (!toplevels || !ownKeyboard) {
            return std::nullopt;
        }
        Typing made;
        made.toplevels = std::move(toplevels);
        made.keyboard = std::move(ownKeyboard);
        made.workspace = std::make_unique<ToplevelWorkspace>(
            *made.toplevels, [this](const QString& applicationId) { return nameOf(applicationId); });
        made.keystrokes =
            std::make_unique<VirtualKeystrokePoster>(*made.keyboard, *made.toplevels, pasteboard, scheduler);
        return made;
    }
};

std::unique_ptr<Connection> WaylandDesktop::reachCompositor() {
    auto connection = Connection::open();
    return connection && DataControl::isOffered(**connection) ? std::move(*connection) : nullptr;
}

std::expected<std::unique_ptr<WaylandDesktop>, std::string>
WaylandDesktop::create(freedesktop::desktop::Claim claim, std::unique_ptr<Connection> compositor) {
    auto input = Connection::open();
    if (!input) {
        return std::unexpected(input.error());
    }
    auto xwayland = x11::Connection::open();
    if (!xwayland) {
        return std::unexpected(xwayland.error());
    }
    auto adapters =
        std::make_unique<Adapters>(std::move(claim), Adapters::Connections{.clipboard = std::move(compositor),
                                                                           .input = std::move(*input),
                                                                           .xwayland = std::move(*xwayland)});
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
