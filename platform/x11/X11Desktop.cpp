// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Desktop.h"

#include "platform/freedesktop/QtApplication.h"
#include "platform/freedesktop/TextFieldPaste.h"
#include "platform/freedesktop/popover/PopoverWindow.h"
#include "platform/freedesktop/session/Programs.h"
#include "platform/freedesktop/session/TerminationSignals.h"
#include "platform/freedesktop/tray/TrayClicks.h"
#include "platform/freedesktop/tray/TrayIcon.h"
#include "platform/x11/ButtonPresses.h"
#include "platform/x11/Connection.h"
#include "platform/x11/Keyboard.h"
#include "platform/x11/Windows.h"
#include "platform/x11/X11AccessibilityTrust.h"
#include "platform/x11/X11EmbeddedIcon.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "platform/x11/X11KeystrokePoster.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11WindowSystem.h"
#include "platform/x11/X11Workspace.h"
#include "platform/x11/XWaylandPortals.h"

#include <xcb/xcb.h>

#include <optional>
#include <utility>

namespace zamber::x11 {

using Connections = std::pair<std::unique_ptr<x11::Connection>, std::unique_ptr<x11::Connection>>;

namespace {

/// The desktop's own shortcut is not needed where its portal has bound the hot key; one that was set can be taken away.
class ShortcutWithoutPortal final : public DesktopShortcut {
public:
    ShortcutWithoutPortal(DesktopShortcut& shortcut, const freedesktop::portal::PortalHotKeyCenter& portal)
        : m_shortcut(shortcut)
        , m_portal(portal) {}

    DesktopShortcutStatus status() const override {
        const DesktopShortcutStatus status = m_shortcut.status();
        return status == DesktopShortcutStatus::NotSet && m_portal.isBound(PhysicalKey::V)
                   ? DesktopShortcutStatus::NotOffered
                   : status;
    }
    std::expected<void, QString> set() override { return m_shortcut.set(); }
    std::expected<void, QString> remove() override { return m_shortcut.remove(); }

private:
    DesktopShortcut& m_shortcut;
    const freedesktop::portal::PortalHotKeyCenter& m_portal;
};

} // namespace

/// The pasteboard has a connection to itself, so that a large transfer does not stand before a hot key. In a session of
/// Wayland the desktop's portals are asked for what X has for its own programs alone.
struct X11Desktop::Adapters : freedesktop::desktop::CommonAdapters {
    Adapters(freedesktop::desktop::Claim claim, Connections connections)
        : CommonAdapters(std::move(claim))
        , clipboardConnection(std::move(connections.first))
        , inputConnection(std::move(connections.second)) {
        QObject::connect(claimed.instance.get(), &freedesktop::session::SingleInstance::showRequested,
                         claimed.instance.get(), [this] { application.requestShow(); });
        if (portals) {
            observeHotKeys([this] { portals->hotKeys.update(); });
        }
        if (portals && desktopShortcut) {
            shortcutWithoutPortal.emplace(*desktopShortcut, portals->hotKeys);
        }
    }

    ~Adapters() { stop(); }

    Adapters(const Adapters&) = delete;
    Adapters& operator=(const Adapters&) = delete;

    std::unique_ptr<x11::Connection> clipboardConnection;
    std::unique_ptr<x11::Connection> inputConnection;

    const bool isOnWayland = XWaylandPortals::isSessionOfWayland();
    x11::X11Pasteboard pasteboard{*clipboardConnection};
    x11::Keyboard keyboard{*inputConnection};
    x11::Windows windows{*inputConnection};
    x11::ButtonPresses presses{*inputConnection};
    x11::X11WindowSystem windowSystem{*inputConnection, windows};
    x11::X11HotKeyCenter x11HotKeys{*inputConnection, keyboard, freedesktop::desktop::closeMenus};
    x11::X11Workspace workspace{
        *inputConnection, windows,
        [this](const QString& windowClass) { return applicationNames.ofWindowClass(windowClass); },
        isOnWayland ? X11Workspace::Otherwise::WindowOfWayland : X11Workspace::Otherwise::Nothing};
    x11::X11KeystrokePoster x11Keystrokes{*inputConnection, keyboard,   windows,  x11HotKeys,
                                          workspace,        pasteboard, scheduler};
    x11::X11AccessibilityTrust x11Trust{*inputConnection};

    std::unique_ptr<XWaylandPortals> portals = isOnWayland ? makePortals() : nullptr;
    HotKeyCenter& hotKeys = portals ? static_cast<HotKeyCenter&>(portals->hotKeys) : x11HotKeys;
    KeystrokePoster& keystrokes = portals ? static_cast<KeystrokePoster&>(portals->keystrokes) : x11Keystrokes;
    AccessibilityTrust& trust = portals ? static_cast<AccessibilityTrust&>(portals->trust) : x11Trust;
    std::optional<ShortcutWithoutPortal> shortcutWithoutPortal;

    freedesktop::QtApplication application{[this](WId window) { windowSystem.bringToFront(window); }};
    freedesktop::TextFieldPaste textFieldPaste{pasteboard};
    freedesktop::popover::PopoverWindow popover{appearance, windowSystem};
    freedesktop::tray::TrayClicks trayClicks{popover, presses, scheduler};
    x11::X11EmbeddedIcon embeddedIcon{*inputConnection};
    freedesktop::tray::TrayIcon statusItem{trayClicks, &embeddedIcon, windowSystem, hotKeys.commandKeyHint()};

private:
    std::unique_ptr<XWaylandPortals> makePortals() {
        return std::make_unique<XWaylandPortals>(
            XWaylandPortals::Surroundings{.partsOfX = {.connection = *inputConnection,
                                                       .keyboard = keyboard,
                                                       .windows = windows,
                                                       .hotKeysOfX = x11HotKeys,
                                                       .workspace = workspace,
                                                       .pasteboard = pasteboard,
                                                       .scheduler = scheduler},
                                          .isWanted = [this](PhysicalKey key) { return isHotKeyWanted(key); },
                                          .closeMenus = freedesktop::desktop::closeMenus});
    }
};

std::expected<void, std::string> X11Desktop::prepare() {
    freedesktop::session::TerminationSignals::remember();
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool isConnected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    if (!isConnected) {
        return std::unexpected("there is no X server to be reached (on Wayland, XWayland has to be running)");
    }
    freedesktop::session::startEnvironment(); // before it is changed, for the programs that are started later
    // On Wayland too: the clipboard, the hot keys and the keystroke are spoken over X there.
    qputenv("QT_QPA_PLATFORM", "xcb");
    // A frame is painted when something has changed, not five milliseconds later.
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
    return {};
}

std::expected<std::unique_ptr<X11Desktop>, std::string> X11Desktop::create(freedesktop::desktop::Claim claim) {
    auto clipboard = x11::Connection::open();
    auto input = x11::Connection::open();
    if (!clipboard || !input) {
        return std::unexpected((clipboard ? input : clipboard).error());
    }
    auto adapters = std::make_unique<Adapters>(std::move(claim), Connections(std::move(*clipboard), std::move(*input)));
    return std::unique_ptr<X11Desktop>(new X11Desktop(std::move(adapters)));
}

X11Desktop::X11Desktop(std::unique_ptr<Adapters> adapters)
    : m_adapters(std::move(adapters)) {}

X11Desktop::~X11Desktop() = default;

void X11Desktop::setResponder(const QString& action, std::function<void()> responder) {
    m_adapters->application.setResponder(action, std::move(responder));
}

void X11Desktop::bringToFront(WId window) {
    m_adapters->windowSystem.bringToFront(window);
}

Desktop X11Desktop::ports() {
    Desktop ports = portsOf(*m_adapters);
    ports.desktopShortcut =
        m_adapters->shortcutWithoutPortal ? &*m_adapters->shortcutWithoutPortal : m_adapters->desktopShortcut.get();
    return ports;
}

} // namespace zamber::x11
