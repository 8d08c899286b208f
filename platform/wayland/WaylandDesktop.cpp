// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandDesktop.h"

#include "platform/freedesktop/QtApplication.h"
#include "platform/freedesktop/TextFieldPaste.h"
#include "platform/freedesktop/popover/PopoverWindow.h"
#include "platform/freedesktop/portal/PortalHotKeyCenter.h"
#include "platform/freedesktop/portal/PortalRecord.h"
#include "platform/freedesktop/portal/Portals.h"
#include "platform/freedesktop/session/Programs.h"
#include "platform/freedesktop/session/TerminationSignals.h"
#include "platform/freedesktop/tray/TrayClicks.h"
#include "platform/freedesktop/tray/TrayIcon.h"
#include "platform/wayland/Connection.h"
#include "platform/wayland/DataControl.h"
#include "platform/wayland/FakeKeyboard.h"
#include "platform/wayland/HandBoundHotKeys.h"
#include "platform/wayland/KGlobalAccelHotKeyCenter.h"
#include "platform/wayland/KWinFreeAreas.h"
#include "platform/wayland/LayerShell.h"
#include "platform/wayland/LayerWindowSystem.h"
#include "platform/wayland/NoHotKeys.h"
#include "platform/wayland/NoPointerButtons.h"
#include "platform/wayland/OwnFocus.h"
#include "platform/wayland/OwnWindows.h"
#include "platform/wayland/PlasmaLayout.h"
#include "platform/wayland/PlasmaWindowSystem.h"
#include "platform/wayland/SeatKeyboard.h"
#include "platform/wayland/SessionCompositor.h"
#include "platform/wayland/SwayConnection.h"
#include "platform/wayland/SwayHotKeyCenter.h"
#include "platform/wayland/SwayWindowSystem.h"
#include "platform/wayland/ToplevelWorkspace.h"
#include "platform/wayland/Toplevels.h"
#include "platform/wayland/VirtualKeyboard.h"
#include "platform/wayland/VirtualKeyboardTrust.h"
#include "platform/wayland/VirtualKeystrokePoster.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "platform/wayland/XwaylandAdapters.h"

#include <QGuiApplication>

#include <cstdio>
#include <optional>
#include <utility>

namespace zamber::wayland {

namespace {

/// Whether Qt draws on Wayland by itself; else its windows are XWayland's.
bool areWindowsOwn() {
    return QGuiApplication::platformName() == QStringLiteral("wayland");
}

} // namespace

/// Hot keys, the paste keystroke and the application in front come from the compositor where it has protocols for them,
/// else from XWayland, which knows only programs of X and need not be there. The pasteboard has its own connection, so
/// that a large transfer does not delay a keystroke.
struct WaylandDesktop::Adapters : freedesktop::desktop::CommonAdapters {
    struct Session {
        std::unique_ptr<Connection> clipboard;
        std::unique_ptr<Connection> input;
        std::unique_ptr<Toplevels> toplevels;           // null where the compositor does not tell of them
        std::unique_ptr<PasteKeyboard> virtualKeyboard; // null where the compositor lets no program be one
        std::unique_ptr<x11::Connection> xwayland; // null where there is none; needed where one of the two before is
    };

    Adapters(freedesktop::desktop::Claim claim, Session opened)
        : CommonAdapters(std::move(claim))
        , session(std::move(opened)) {
        QObject::connect(claimed.instance.get(), &freedesktop::session::SingleInstance::showRequested,
                         claimed.instance.get(), [this](const QString& activationToken) {
                             windowSystem().useActivationToken(activationToken);
                             application.requestShow();
                         });
        if (xwayland) {
            QObject::connect(&xwayland->ownerDeaths, &x11::OwnerDeaths::ownerDied, &pasteboard,
                             &WaylandPasteboard::checkOwner);
        }
        if (ownFocus) {
            QObject::connect(ownFocus.get(), &OwnFocus::lost, ownWindows.get(),
                             &freedesktop::popover::WindowSystem::focusLost);
            QObject::connect(&popover, &freedesktop::popover::PopoverWindow::shown, ownFocus.get(),
                             &OwnFocus::startOver);
        }
        if (plasmaHotKeys && !typing) {
            std::fputs(
                "zamber: KWin lets Zamber paste into other programs only when it is installed: its desktop entry "
                "asks for that, and names the program by its whole path\n",
                stderr);
        }
        observeHotKeys([this] {
            if (swayHotKeys) {
                swayHotKeys->update();
            }
            if (plasmaHotKeys) {
                plasmaHotKeys->update();
            }
            if (otherHotKeys) {
                otherHotKeys->ofPortal.update();
            }
        });
    }

    ~Adapters() { stop(); }

    Adapters(const Adapters&) = delete;
    Adapters& operator=(const Adapters&) = delete;

    freedesktop::popover::WindowSystem& windowSystem() {
        if (ownWindows) {
            return *ownWindows;
        }
        return xwayland->windowSystem;
    }

    std::optional<QString> nameOf(const QString& applicationId) {
        return applicationNames.ofWindowClass(applicationId);
    }

    OfferReader::AskForMark askForMark() {
        if (!secretMark) {
            return {};
        }
        return [this](const std::vector<QByteArray>& types, x11::SecretMark::Answer answer) {
            secretMark->ask(types, std::move(answer));
        };
    }

    Session session;
    std::unique_ptr<x11::SecretMark> secretMark =
        session.xwayland ? std::make_unique<x11::SecretMark>(*session.xwayland) : nullptr;
    WaylandPasteboard pasteboard{*session.clipboard, askForMark()};
    std::unique_ptr<XwaylandAdapters> xwayland =
        session.xwayland
            ? std::make_unique<XwaylandAdapters>(*session.xwayland, pasteboard, scheduler,
                                                 freedesktop::desktop::closeMenus,
                                                 [this](const QString& windowClass) { return nameOf(windowClass); })
            : nullptr;

    std::unique_ptr<SwayConnection> sway = SwayConnection::open();
    std::unique_ptr<SwayHotKeyCenter> swayHotKeys =
        sway ? std::make_unique<SwayHotKeyCenter>(
                   *sway, [this](PhysicalKey key) { return isHotKeyWanted(key); }, freedesktop::desktop::closeMenus)
             : nullptr;
    std::unique_ptr<SeatKeyboard> seatKeyboard = SeatKeyboard::create(*session.input);
    std::unique_ptr<KGlobalAccelHotKeyCenter> plasmaHotKeys =
        !sway && seatKeyboard && KGlobalAccelHotKeyCenter::isOffered()
            ? std::make_unique<KGlobalAccelHotKeyCenter>(
                  *seatKeyboard, [this](PhysicalKey key) { return isHotKeyWanted(key); },
                  freedesktop::desktop::closeMenus)
            : nullptr;

    /// XWayland's fire while a program of X is in front, the portal's, where the desktop has one, in any case.
    struct OtherHotKeys {
        OtherHotKeys(XwaylandAdapters* xwayland, Scheduler& scheduler,
                     freedesktop::portal::PortalHotKeyCenter::IsWanted isWanted)
            : portals(QGuiApplication::desktopFileName(), freedesktop::portal::Portals::ownConnection(), scheduler)
            , ofPortal({.portals = portals,
                        .record = record,
                        .hotKeysOfX = xwayland != nullptr ? static_cast<HotKeyCenter&>(xwayland->hotKeys) : none,
                        .scheduler = scheduler},
                       std::move(isWanted), freedesktop::desktop::closeMenus) {}

        NoHotKeys none;
        freedesktop::portal::Portals portals;
        freedesktop::portal::PortalRecord record;
        freedesktop::portal::PortalHotKeyCenter ofPortal;
        HandBoundHotKeys center{ofPortal};
    };
    /// Null where the compositor has hot keys for programs.
    std::unique_ptr<OtherHotKeys> otherHotKeys =
        !swayHotKeys && !plasmaHotKeys
            ? std::make_unique<OtherHotKeys>(xwayland.get(), scheduler,
                                             [this](PhysicalKey key) { return isHotKeyWanted(key); })
            : nullptr;
    HotKeyCenter& hotKeys = chooseHotKeys();

    /// Both or neither: a keystroke is typed when the right window is in front.
    struct Typing {
        std::unique_ptr<PasteKeyboard> keyboard;
        std::unique_ptr<ToplevelWorkspace> workspace;
        std::unique_ptr<VirtualKeystrokePoster> keystrokes;
        VirtualKeyboardTrust trust;
    };
    std::optional<Typing> typing = makeTyping();
    Workspace& workspace = typing ? static_cast<Workspace&>(*typing->workspace) : xwayland->workspace;
    KeystrokePoster& keystrokes = typing ? static_cast<KeystrokePoster&>(*typing->keystrokes) : xwayland->keystrokes;
    NotInstalledTrust notInstalledTrust; // KWin's, which would let an installed program type
    AccessibilityTrust& trust = typing          ? static_cast<AccessibilityTrust&>(typing->trust)
                                : plasmaHotKeys ? static_cast<AccessibilityTrust&>(notInstalledTrust)
                                                : xwayland->trust;

    const SessionCompositor compositor = areWindowsOwn() ? lookAtSessionCompositor() : SessionCompositor{};
    std::unique_ptr<KWinFreeAreas> freeAreas =
        compositor.hasPlasmaWindows ? std::make_unique<KWinFreeAreas>() : nullptr;
    /// Null where the windows are XWayland's.
    std::unique_ptr<freedesktop::popover::WindowSystem> ownWindows = makeOwnWindows();
    std::unique_ptr<OwnFocus> ownFocus =
        ownWindows && session.toplevels
            ? std::make_unique<OwnFocus>(*session.toplevels, QGuiApplication::desktopFileName(), scheduler)
            : nullptr;
    NoPointerButtons noPresses;
    freedesktop::QtApplication application{[this](WId window) { windowSystem().bringToFront(window); }};
    freedesktop::TextFieldPaste textFieldPaste{pasteboard};
    freedesktop::popover::PopoverWindow popover{appearance, windowSystem()};
    freedesktop::tray::TrayClicks trayClicks{popover, presses(), scheduler};
    freedesktop::tray::TrayIcon statusItem{trayClicks, ownWindows ? nullptr : &xwayland->embeddedIcon, windowSystem(),
                                           hotKeys.commandKeyHint()};

private:
    HotKeyCenter& chooseHotKeys() {
        if (swayHotKeys) {
            return *swayHotKeys;
        }
        if (plasmaHotKeys) {
            return *plasmaHotKeys;
        }
        return otherHotKeys->center;
    }

    std::unique_ptr<freedesktop::popover::WindowSystem> makeOwnWindows() {
        if (!areWindowsOwn()) {
            return nullptr;
        }
        if (sway) {
            return std::make_unique<SwayWindowSystem>(*sway, scheduler);
        }
        std::function<QRectF()> freePart;
        if (xwayland) {
            freePart = [this] { return xwayland->windowSystem.freePartOfDesktop(); };
        }
        if (!compositor.hasPlasmaWindows) {
            return std::make_unique<LayerWindowSystem>(compositor.hasLayers ? LayerShell::load() : nullptr,
                                                       std::move(freePart));
        }
        PlasmaWindowSystem::Desktop desktop{.freeArea = [this](const QString& screen) { return freeAreas->of(screen); },
                                            .freePart = std::move(freePart),
                                            .activeWindow =
                                                [this] {
                                                    const auto active = activeToplevel();
                                                    return active ? active->geometry : std::nullopt;
                                                },
                                            .isOursActive = [this] { return isOursActive(); }};
        return std::make_unique<PlasmaWindowSystem>(std::move(desktop));
    }

    std::optional<Toplevels::Toplevel> activeToplevel() const {
        session.input->roundTrip(); // it may be that Qt has been told of a change and this connection not yet
        return session.toplevels ? session.toplevels->active() : std::nullopt;
    }

    bool isOursActive() const {
        const auto active = activeToplevel();
        return active && active->processId == QCoreApplication::applicationPid();
    }

    freedesktop::tray::PointerButtons& presses() {
        if (ownWindows) {
            return noPresses;
        }
        return xwayland->presses;
    }

    std::optional<Typing> makeTyping() {
        std::unique_ptr<PasteKeyboard> ownKeyboard = std::move(session.virtualKeyboard);
        if (!ownKeyboard && seatKeyboard) {
            ownKeyboard = FakeKeyboard::create(*session.input, *seatKeyboard, activePlasmaLayout, plasmaHotKeys.get());
        }
        if (!session.toplevels || !ownKeyboard) {
            return std::nullopt;
        }
        Typing made;
        made.keyboard = std::move(ownKeyboard);
        made.workspace = std::make_unique<ToplevelWorkspace>(
            *session.toplevels, [this](const QString& applicationId) { return nameOf(applicationId); });
        made.keystrokes =
            std::make_unique<VirtualKeystrokePoster>(*made.keyboard, *session.toplevels, pasteboard, scheduler);
        return made;
    }
};

bool WaylandDesktop::prepareWindows() {
    // The history closes when its window has lost the focus. Where nobody tells of that, XWayland's are the better
    // ones.
    if (qgetenv("QT_QPA_PLATFORM").startsWith("xcb") || !qtHasWaylandWindows()) {
        return false;
    }
    const SessionCompositor compositor = lookAtSessionCompositor();
    if (!compositor.hasDataControl ||
        (qEnvironmentVariableIsEmpty("SWAYSOCK") && !compositor.hasPlasmaWindows && !compositor.tellsOfToplevels)) {
        return false;
    }
    freedesktop::session::TerminationSignals::remember();
    freedesktop::session::startEnvironment(); // before it is changed, for the programs that are started later
    qputenv("QT_QPA_PLATFORM", "wayland");
    // A frame is painted when something has changed, not five milliseconds later.
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
    // The compositor draws the frames of windows. Else Qt would load the graphics driver at the first window, to find
    // out whether it could draw them itself: a tenth of a second, and 30 MiB for good.
    qputenv("QT_WAYLAND_DISABLE_WINDOWDECORATION", "1");
    qunsetenv("XDG_ACTIVATION_TOKEN"); // meant for a window that opens at the start
    return true;
}

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
    auto toplevels = Toplevels::create(**input);
    auto virtualKeyboard = VirtualKeyboard::create(**input);
    const bool canType = virtualKeyboard || ((*input)->seat() != nullptr && FakeKeyboard::isOffered(**input));
    if (!xwayland && (!toplevels || !canType || !areWindowsOwn())) {
        return std::unexpected(xwayland.error());
    }
    auto adapters = std::make_unique<Adapters>(
        std::move(claim), Adapters::Session{.clipboard = std::move(compositor),
                                            .input = std::move(*input),
                                            .toplevels = std::move(toplevels),
                                            .virtualKeyboard = std::move(virtualKeyboard),
                                            .xwayland = xwayland ? std::move(*xwayland) : nullptr});
    return std::unique_ptr<WaylandDesktop>(new WaylandDesktop(std::move(adapters)));
}

WaylandDesktop::WaylandDesktop(std::unique_ptr<Adapters> adapters)
    : m_adapters(std::move(adapters)) {}

WaylandDesktop::~WaylandDesktop() = default;

void WaylandDesktop::setResponder(const QString& action, std::function<void()> responder) {
    m_adapters->application.setResponder(action, std::move(responder));
}

void WaylandDesktop::bringToFront(WId window) {
    m_adapters->windowSystem().bringToFront(window);
}

Desktop WaylandDesktop::ports() {
    Desktop ports = portsOf(*m_adapters);
    ports.desktopShortcut = m_adapters->desktopShortcut.get();
    return ports;
}

} // namespace zamber::wayland
