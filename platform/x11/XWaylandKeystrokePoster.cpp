// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/XWaylandKeystrokePoster.h"

#include "platform/freedesktop/portal/PortalHotKeyCenter.h"
#include "platform/freedesktop/portal/PortalKeyboard.h"
#include "platform/x11/Keyboard.h"
#include "platform/x11/Windows.h"

namespace zamber::x11 {

namespace {

/// Stands for whichever window of Wayland is in front. No window of X has this number.
constexpr std::uint64_t WINDOW_OF_WAYLAND = XCB_WINDOW_NONE;

/// X counts keys from eight on.
constexpr int FIRST_KEY_CODE = 8;

} // namespace

XWaylandKeystrokePoster::XWaylandKeystrokePoster(const PartsOfX& partsOfX,
                                                 freedesktop::portal::PortalKeyboard& portalKeyboard,
                                                 freedesktop::portal::PortalHotKeyCenter& hotKeys)
    : X11KeystrokePoster(partsOfX.connection, partsOfX.keyboard, partsOfX.windows, partsOfX.hotKeysOfX,
                         partsOfX.workspace, partsOfX.pasteboard, partsOfX.scheduler)
    , m_keyboard(partsOfX.keyboard)
    , m_windows(partsOfX.windows)
    , m_portalKeyboard(portalKeyboard)
    , m_hotKeys(hotKeys) {
    connect(&m_windows, &Windows::activeWindowChanged, this, &XWaylandKeystrokePoster::openWhereNeeded);
    connect(&m_portalKeyboard, &freedesktop::portal::PortalKeyboard::changed, this,
            &XWaylandKeystrokePoster::postWhenReady);
    connect(&m_hotKeys, &freedesktop::portal::PortalHotKeyCenter::keysReleased, this,
            &XWaylandKeystrokePoster::postWhenReady);
}

void XWaylandKeystrokePoster::beginWaiting() {
    X11KeystrokePoster::beginWaiting();
    m_isWaiting = true;
    openWhereNeeded();
}

void XWaylandKeystrokePoster::endWaiting() {
    X11KeystrokePoster::endWaiting();
    m_isWaiting = false;
    m_portalKeyboard.close();
}

void XWaylandKeystrokePoster::openWhereNeeded() {
    // Opening takes a moment, in which a window of Wayland gets its focus back.
    if (m_isWaiting && !m_windows.activeWindow() && !targetWindow()) {
        m_portalKeyboard.open();
    }
}

bool XWaylandKeystrokePoster::isReady() const {
    if (m_hotKeys.areKeysHeld()) {
        return false;
    }
    if (m_windows.activeWindow()) {
        return X11KeystrokePoster::isReady();
    }
    return !targetWindow() && m_portalKeyboard.isOpen() && m_keyboard.heldModifierKeys().empty();
}

std::optional<XWaylandKeystrokePoster::Window> XWaylandKeystrokePoster::windowToTypeInto() const {
    if (!m_windows.activeWindow() && m_portalKeyboard.isOpen()) {
        return WINDOW_OF_WAYLAND;
    }
    return X11KeystrokePoster::windowToTypeInto();
}

XWaylandKeystrokePoster::PasteKeystroke XWaylandKeystrokePoster::keystrokeFor(Window window) const {
    return window == WINDOW_OF_WAYLAND ? PasteKeystroke::ControlV : X11KeystrokePoster::keystrokeFor(window);
}

bool XWaylandKeystrokePoster::type(Window window, PasteKeystroke keystroke) {
    m_hasTypedIntoWayland = window == WINDOW_OF_WAYLAND;
    if (!m_hasTypedIntoWayland) {
        return X11KeystrokePoster::type(window, keystroke);
    }
    if (m_windows.activeWindow() || !m_portalKeyboard.isOpen()) {
        return false;
    }
    std::vector<int> keys;
    for (const xcb_keycode_t key : keysOf(keystroke)) {
        keys.push_back(key - FIRST_KEY_CODE);
    }
    m_portalKeyboard.type(keys);
    return true;
}

bool XWaylandKeystrokePoster::mayBeReader(std::uint32_t window) const {
    // The compositor asks in the place of its windows.
    return m_hasTypedIntoWayland || X11KeystrokePoster::mayBeReader(window);
}

} // namespace zamber::x11
